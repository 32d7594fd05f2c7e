// SPDX-License-Identifier: MIT
#include "app/Quotations.h"

#include <array>
#include <cstddef>

#include "platform/Errors.h"

namespace velquist::app {
namespace {

using namespace std::string_view_literals;

// Above a quotation stands where it was said or printed, as far as that is known: from memory, not
// looked up again. A new one needs such a place.
constexpr auto kQuotations = std::to_array<std::string_view>({
    "Better to lose honourably in a British car than win in a foreign one. -- Stirling Moss"sv,
    // to Paul Frere, Le Mans 1960
    "Aerodynamics are for people who can't build engines. -- Enzo Ferrari"sv,
    "Adding power makes you faster on the straights. Subtracting weight makes you faster "
    "everywhere. -- Colin Chapman"sv,
    "I would have been a much more popular World Champion if I had always said what people wanted "
    "to hear. I might have been dead, but definitely more popular. -- Jackie Stewart"sv,
    "You must always strive to be the best, but you must never believe that you are. "
    "-- Juan Manuel Fangio"sv,
    // to Jackie Stewart, Adelaide 1990
    "If you no longer go for a gap that exists, you are no longer a racing driver. "
    "-- Ayrton Senna"sv,
    // of Monaco 1988, to Gerald Donaldson, "Grand Prix People", 1990
    "And suddenly I realised that I was no longer driving the car consciously. I was driving it by "
    "a kind of instinct, only I was in a different dimension. -- Ayrton Senna"sv,
    "It is amazing how many drivers, even at the Formula One level, think that the brakes are for "
    "slowing the car down. -- Mario Andretti"sv,
    "A lot of people criticize Formula 1 as an unnecessary risk. But what would life be like if we "
    "only did what is necessary? -- Niki Lauda"sv,
    "From success, you learn absolutely nothing. From failure and setbacks, conclusions can be "
    "drawn. -- Niki Lauda"sv,
    // after the Cannonball Dash of 1971, reported by Brock Yates
    "At no time did we exceed 175 miles per hour. -- Dan Gurney"sv,
    "There is no doubt about precisely when folks began racing each other in automobiles. It was "
    "the day they built the second automobile. -- Richard Petty"sv,
    // of Timmy Mayer, "From the Cockpit", 1964
    "To do something well is so worthwhile that to die trying to do it better cannot be foolhardy. "
    "-- Bruce McLaren"sv,
    // goes on from there
    "It would be a waste of life to do nothing with one's ability, for I feel that life is "
    "measured in achievement, not in years alone. -- Bruce McLaren"sv,
    "I've always been asked, 'What is my favorite car?' and I've always said, 'The next one.' "
    "-- Carroll Shelby"sv,
    // on the air, Suzuka 1996
    "And I've got to stop, because I've got a lump in my throat. -- Murray Walker"sv,
    // to Colin Chapman, a letter of May 1969, printed in books on both
    "I can only drive a car in which I have some confidence, and I feel the point of no confidence "
    "is quite near. -- Jochen Rindt"sv,
    "Winning is everything. The only ones who remember you when you come second are your wife and "
    "your dog. -- Damon Hill"sv,
    "I should like to drive a Formula One machine, not for the grand prize, but just to see what "
    "it is like. I should think it would be jolly good fun! -- Ken Miles"sv,
    "If Honda does not race, there is no Honda. -- Soichiro Honda"sv,
    // on the air, at the start of races from 2001 on
    "Boogity, boogity, boogity! Let's go racing, boys! -- Darrell Waltrip"sv,
    // to Robert Daley, "The Cruel Sport", 1963
    "Racing brings out the worst in me. -- Phil Hill"sv,
    // of his races there, 1968, 1971 and 1973
    "Nothing gave me more satisfaction than to win at the Nurburgring, and yet I was always "
    "afraid. -- Jackie Stewart"sv,
});

static_assert(kQuotations.size() == kQuotationCount);

}  // namespace

std::string_view Quotation(int index)
{
  if (index < 0 || index >= kQuotationCount) {
    throw BoundsError("no quotation of that number");
  }
  return kQuotations[static_cast<std::size_t>(index)];
}

}  // namespace velquist::app
