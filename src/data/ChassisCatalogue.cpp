// SPDX-License-Identifier: MIT
#include "data/ChassisCatalogue.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <string>

#include "platform/Errors.h"

namespace velquist::data {
namespace {

/// Engines of F2 and F3.
using JuniorEngines = std::array<Engine, 2>;

// Cars in the order of their slots: code, name, folder, then of the engine c0, c1, c2, c3,
// displacement, maximum rpm, gears, rear weight fraction, then the maximum speed. Cars that run the
// same engine have a row each. Codes and folders may be named after another maker: they stay so.

// clang-format off
constexpr auto kCars1967 = std::to_array<Car>({
    {"bb", "Brabham BT24-Repco V8",    "brabham",  {    30,       0.0599f,    -4.99e-6f,    -8.43e-15f, 183,  8700, 5,  0.6f}, 200},
    {"br", "BRM P115-BRM H16",         "brm",      {99.84f, -0.043209396f,  1.17415e-5f, -6.59098e-10f, 183, 11200, 6, 0.64f}, 200},
    {"co", "Cooper T81-Maserati V12",  "coventry", {    75,  0.019842517f,    1.002e-6f, -2.06652e-10f, 183, 10000, 5,  0.6f}, 200},
    {"ea", "Eagle AAR103-Weslake V12", "eagle",    {    75,  0.005159607f,  3.98244e-6f,  -3.4484e-10f, 183, 10400, 5, 0.61f}, 200},
    {"fe", "Ferrari 312-Ferrari V12",  "ferrari",  {    73,  0.015385154f,  9.05915e-7f, -1.42033e-10f, 183, 10900, 5, 0.61f}, 200},
    {"lo", "Lotus 49-Ford V8 DFV",     "lotus",    {    78,    0.0121547f,    4.382e-6f,   -4.763e-10f, 183,  9400, 5, 0.62f}, 200},
    {"mu", "Honda RA300-Honda V12",    "murasama", {86.32f,     -0.01792f,    6.583e-6f,   -3.857e-10f, 183, 11500, 5, 0.64f}, 200},
});
constexpr JuniorEngines kJuniors1967 = {{
    /* F2 */                                       {    83,   0.04134399f, -2.24675e-6f, -1.95235e-10f, 153,  8200, 5, 0.64f},
    /* F3 */                                       {    88,   0.04537647f, -3.10673e-6f, -5.02432e-10f, 122,  6200, 4, 0.64f},
}};

constexpr auto kCars1965 = std::to_array<Car>({
    {"bb", "Brabham BT11-Climax V8",   "brabham",  {153.05342f, -0.029015947f, 8.45091e-6f, -5.00207e-10f, 91, 11200, 5, 0.595f}, 180},
    {"br", "BRM P261-BRM V8",          "brm",      {139.21565f, -0.027038971f, 6.93846e-6f, -3.61443e-10f, 91, 12400, 6, 0.605f}, 180},
    {"co", "Cooper T77-Climax V8",     "coventry", {161.58588f,  -0.03357349f, 1.01499e-5f, -6.46943e-10f, 91, 10400, 6,   0.6f}, 180},
    {"ea", "Brabham BT7-Climax V8",    "eagle",    {161.58588f,  -0.03357349f, 1.01499e-5f, -6.46943e-10f, 91, 10400, 6,   0.6f}, 180},
    {"fe", "Ferrari 1512-Ferrari V12", "ferrari",  {119.23588f, -0.016583959f, 5.30146e-6f, -2.84226e-10f, 91, 12700, 5, 0.605f}, 180},
    {"lo", "Lotus 33-Climax V8",       "lotus",    { 157.6396f, -0.033030536f, 9.40902e-6f, -5.61037e-10f, 91, 11200, 5,  0.61f}, 180},
    {"mu", "Honda RA272-Honda V12",    "murasama", {158.80035f, -0.040242262f, 8.77428e-6f, -4.26618e-10f, 91, 13500, 6,  0.58f}, 180},
});
constexpr JuniorEngines kJuniors1965 = {{
    /* F2 */                                       {134.73874f, -0.018078143f, 6.10798e-6f, -3.55747e-10f, 72, 12000, 6,  0.64f},
    /* F3 */                                       {       135,  0.002581197f, 3.28863e-6f, -3.57659e-10f, 72,  9000, 5,  0.64f},
}};

// "mu" stands before "lo" here, unlike in the other years: code, name and folder go together.
constexpr auto kCars1966 = std::to_array<Car>({
    {"bb", "Brabham BT19-Repco V8 3.0L",    "brabham",  {22.746023f,   0.08572578f, -1.18798e-5f,  4.40968e-10f, 182.8f,  8700, 5,  0.6f}, 200},
    {"bc", "Brabham BT11-Climax S4 2.5L",   "c09",      {24.506542f,  0.101442926f, -1.52793e-5f,  5.93759e-10f, 152.3f,  7700, 5,  0.6f}, 200},
    {"bd", "Brabham BT11-Climax S4 2.7L",   "c14",      {12.991534f,   0.12436044f, -2.17536e-5f,   1.03476e-9f, 167.9f,  7200, 5,  0.6f}, 200},
    {"be", "Brabham BT11-BRM V8 1.9L",      "c15",      {45.354908f,  0.019927789f,  1.56258e-6f, -2.04155e-10f, 116.9f, 11800, 6,  0.6f}, 200},
    {"br", "BRM P83-BRM H16 3.0L",          "brm",      { 27.73145f,  0.019690089f,  1.51679e-6f,  -2.0129e-10f, 182.8f, 11200, 6, 0.62f}, 200},
    {"bs", "BRM P261-BRM V8 2.1L",          "c07",      { 50.53561f,  0.011808548f,   2.6063e-6f, -2.29391e-10f, 126.3f, 11500, 6,  0.6f}, 200},
    {"co", "Cooper T81-Maserati V12 3.0L",  "coventry", {25.544254f,  0.052474357f, -4.70014e-6f,  7.80239e-11f, 182.4f, 10200, 5,  0.6f}, 200},
    {"eb", "Eagle AAR102-Weslake V12 3.0L", "c10",      { 66.48829f, -0.013887526f,  6.92665e-6f, -4.69618e-10f,    183, 10200, 5, 0.61f}, 200},
    {"ea", "Eagle AAR101-Climax S4 2.7L",   "eagle",    {12.991534f,   0.12436044f, -2.17536e-5f,   1.03476e-9f, 167.9f,  7200, 5,  0.6f}, 200},
    {"fe", "Ferrari 312-Ferrari V12 3.0L",  "ferrari",  {22.694687f,  0.048881534f, -3.93669e-6f,  5.01983e-11f, 182.4f, 10800, 5, 0.61f}, 200},
    {"ff", "Ferrari 246-Ferrari V6 2.4L",   "c11",      {29.915022f,   0.06329057f, -6.29811e-6f,  1.13766e-10f, 147.5f,  9200, 5,  0.6f}, 200},
    {"mu", "Honda RA273-Honda V12 3.0L",    "murasama", {32.816986f,   0.04895175f,  -4.3105e-6f,  8.43583e-11f, 182.7f, 11400, 5, 0.61f}, 200},
    {"lo", "Lotus 43-BRM H16 3.0L",         "lotus",    { 27.73145f,  0.019690089f,  1.51679e-6f,  -2.0129e-10f, 182.8f, 11200, 6, 0.62f}, 200},
    {"lp", "Lotus 33-Climax V8 2.0L",       "c08",      { 41.17136f,  0.059623633f, -5.45402e-6f,  8.29085e-11f, 120.5f,  9700, 5,  0.6f}, 200},
    {"lq", "Lotus 33-BRM V8 1.9L",          "c13",      {45.354908f,  0.019927789f,  1.56258e-6f, -2.04155e-10f, 116.9f, 11800, 6,  0.6f}, 200},
    {"mc", "McLaren M2B-Ford V8 3.0L",      "c12",      {63.132782f,  -0.00875918f,  6.45478e-6f,   -4.787e-10f,    183, 10200, 5, 0.61f}, 200},
});
constexpr JuniorEngines kJuniors1966 = {{
    /* F2 */                                            {        75,   0.00849635f,  3.20722e-6f, -3.25449e-10f, 120.5f,  9800, 5, 0.64f},
    /* F3 */                                            {        75,   0.00849635f,  3.20722e-6f, -3.25449e-10f,  91.2f,  9800, 5, 0.64f},
}};

constexpr auto kCars1969 = std::to_array<Car>({
    {"bb", "Brabham BT26A-Ford V8 DFV", "brabham",  { 90, -0.000541781f,  5.4986e-6f, -4.47065e-10f, 183, 10300, 5, 0.64f}, 200},
    {"br", "BRM P139-BRM V12",          "brm",      { 75,  -0.00947932f, 5.90259e-6f, -3.86592e-10f, 183, 11200, 5, 0.63f}, 200},
    {"co", "Lotus 63-Ford V8 DFV",      "coventry", { 90, -0.000541781f,  5.4986e-6f, -4.47065e-10f, 183, 10300, 5, 0.64f}, 200},
    {"ea", "McLaren M7-Ford V8 DFV",    "eagle",    { 90, -0.000541781f,  5.4986e-6f, -4.47065e-10f, 183, 10300, 5, 0.64f}, 200},
    {"fe", "Ferrari 312--Ferrari V12",  "ferrari",  { 75,  0.006527835f, 2.29717e-6f,  -1.8983e-10f, 183, 11500, 5, 0.63f}, 200},
    {"lo", "Lotus 49B-Ford V8 DFV",     "lotus",    { 90, -0.000541781f,  5.4986e-6f, -4.47065e-10f, 183, 10300, 5, 0.64f}, 200},
    {"mu", "Matra MS80-Ford V8 DFV",    "murasama", { 90, -0.000541781f,  5.4986e-6f, -4.47065e-10f, 183, 10300, 5, 0.64f}, 200},
});
constexpr JuniorEngines kJuniors1969 = {{
    /* F2 */                                        {100,  0.019824123f, 7.40234e-7f, -1.83275e-10f, 133, 10300, 5, 0.64f},
    /* F3 */                                        {100,  0.013351068f,  2.2044e-6f, -3.31427e-10f,  93,  8800, 4, 0.64f},
}};

constexpr auto kCarsGT = std::to_array<Car>({
    {"ga", "Ford MkIIB-Ford V8 7.0L",          "brabham",  {22.746023f,  0.08572578f, -1.18798e-5f,  4.40968e-10f, 426.3f, 6550, 4, 0.61f}, 208},
    {"gb", "Chaparral 2D-Chevrolet V8 7.0L",   "brm",      {24.506542f, 0.101442926f, -1.52793e-5f,  5.93759e-10f,    427, 6750, 3, 0.61f}, 206},
    {"gc", "Lola T70 MkIII-Chevrolet V8 5.4L", "coventry", {12.991534f,  0.12436044f, -2.17536e-5f,   1.03476e-9f, 326.7f, 7050, 5,  0.6f}, 202},
    {"gd", "Chaparral 2F-Chevrolet V8 7.0L",   "eagle",    {24.506542f, 0.101442926f, -1.52793e-5f,  5.93759e-10f,    427, 6750, 3, 0.61f}, 204},
    {"ge", "Ferrari 330/P4-Ferrari V12 4.0L",  "ferrari",  {45.354908f, 0.019927789f,  1.56258e-6f, -2.04155e-10f, 242.1f, 8500, 5,  0.6f}, 194},
    {"gf", "Ford MkIV-Ford V8 7.0L",           "lotus",    {22.746023f,  0.08572578f, -1.18798e-5f,  4.40968e-10f, 426.3f, 6550, 4, 0.61f}, 215},
    {"gg", "Mirage M1-Ford V8 5.7L",           "murasama", { 27.73145f, 0.019690089f,  1.51679e-6f,  -2.0129e-10f, 351.9f, 6600, 5, 0.59f}, 206},
    {"gh", "Ford MkI-Ford V8 4.7L",            "07ForMk1", { 50.53561f, 0.011808548f,   2.6063e-6f, -2.29391e-10f,    289, 7050, 5, 0.58f}, 196},
    {"gi", "Porsche 910-Porsche F8 2.2L",      "08Por910", {25.544254f, 0.052474357f, -4.70014e-6f,  7.80239e-11f,    134, 9300, 5,  0.6f}, 172},
});
constexpr JuniorEngines kJuniorsGT = {{
    /* F2 */                                               {        75,  0.00849635f,  3.20722e-6f, -3.25449e-10f, 120.5f, 9800, 5, 0.64f},
    /* F3 */                                               {        75,  0.00849635f,  3.20722e-6f, -3.25449e-10f,  91.2f, 9800, 5, 0.64f},
}};
// clang-format on

struct Year {
  std::span<const Car> cars;
  JuniorEngines juniors;
};

constexpr std::array<Year, kModYearCount> kYears = {{
    {kCars1967, kJuniors1967},
    {kCars1965, kJuniors1965},
    {kCars1966, kJuniors1966},
    {kCars1969, kJuniors1969},
    {kCarsGT, kJuniorsGT},
}};

constexpr Engine kNoEngine{};

}  // namespace

std::span<const Car> CarsOf(ModYear ModYearIndex) noexcept
{
  const auto year = static_cast<std::size_t>(ModYearIndex);
  return year < kYears.size() ? kYears[year].cars : std::span<const Car>{};
}

int ChassisCount(ModYear ModYearIndex)
{
  const auto cars = CarsOf(ModYearIndex);
  if (cars.empty())
    throw BoundsError("there is no mod year " + std::to_string(NumberOf(ModYearIndex)));
  return static_cast<int>(cars.size());
}

std::string_view ChassisName(ModYear ModYearIndex, int slot)
{
  if (slot < 0 || slot >= ChassisCount(ModYearIndex)) {
    throw BoundsError("mod year " + std::to_string(NumberOf(ModYearIndex)) + " has no chassis " +
                      std::to_string(slot));
  }
  return CarsOf(ModYearIndex)[static_cast<std::size_t>(slot)].name;
}

const Engine& EngineOf(ModYear ModYearIndex, int engine_slot)
{
  const auto year = static_cast<std::size_t>(ModYearIndex);
  if (year >= kYears.size() || engine_slot < 0 || engine_slot >= kEngineSlots) {
    throw BoundsError("mod year " + std::to_string(NumberOf(ModYearIndex)) + " has no engine " +
                      std::to_string(engine_slot));
  }
  const auto& [cars, juniors] = kYears[year];
  const auto slot = static_cast<std::size_t>(engine_slot);
  if (slot < cars.size()) return cars[slot].engine;
  if (engine_slot == kFormula2Slot) return juniors[0];
  if (engine_slot == kFormula3Slot) return juniors[1];
  return kNoEngine;
}

std::optional<int> EngineSlot(int chassis, int formula_index)
{
  switch (formula_index) {
    case 0: return chassis;
    case 1: return kFormula2Slot;
    case 2: return kFormula3Slot;
    default: return std::nullopt;
  }
}

int GearCount(ModYear ModYearIndex, int engine_slot)
{
  return static_cast<int>(std::lround(EngineOf(ModYearIndex, engine_slot).gears));
}

float RearWeightFraction(ModYear ModYearIndex, int engine_slot)
{
  return EngineOf(ModYearIndex, engine_slot).rear_weight_fraction;
}

}  // namespace velquist::data
