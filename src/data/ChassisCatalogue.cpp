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

// Chassis names, in the order of their slots.

// clang-format off
constexpr auto kNames1967 = std::to_array<std::string_view>({
    "Brabham BT24-Repco V8",
    "BRM P115-BRM H16",
    "Cooper T81-Maserati V12",
    "Eagle AAR103-Weslake V12",
    "Ferrari 312-Ferrari V12",
    "Lotus 49-Ford V8 DFV",
    "Honda RA300-Honda V12",
});

constexpr auto kNames1965 = std::to_array<std::string_view>({
    "Brabham BT11-Climax V8",
    "BRM P261-BRM V8",
    "Cooper T77-Climax V8",
    "Brabham BT7-Climax V8",
    "Ferrari 1512-Ferrari V12",
    "Lotus 33-Climax V8",
    "Honda RA272-Honda V12",
});

constexpr auto kNames1966 = std::to_array<std::string_view>({
    "Brabham BT19-Repco V8 3.0L",
    "Brabham BT11-Climax S4 2.5L",
    "Brabham BT11-Climax S4 2.7L",
    "Brabham BT11-BRM V8 1.9L",
    "BRM P83-BRM H16 3.0L",
    "BRM P261-BRM V8 2.1L",
    "Cooper T81-Maserati V12 3.0L",
    "Eagle AAR102-Weslake V12 3.0L",
    "Eagle AAR101-Climax S4 2.7L",
    "Ferrari 312-Ferrari V12 3.0L",
    "Ferrari 246-Ferrari V6 2.4L",
    "Honda RA273-Honda V12 3.0L",
    "Lotus 43-BRM H16 3.0L",
    "Lotus 33-Climax V8 2.0L",
    "Lotus 33-BRM V8 1.9L",
    "McLaren M2B-Ford V8 3.0L",
});

constexpr auto kNames1969 = std::to_array<std::string_view>({
    "Brabham BT26A-Ford V8 DFV",
    "BRM P139-BRM V12",
    "Lotus 63-Ford V8 DFV",
    "McLaren M7-Ford V8 DFV",
    "Ferrari 312--Ferrari V12",
    "Lotus 49B-Ford V8 DFV",
    "Matra MS80-Ford V8 DFV",
});

constexpr auto kNamesGT = std::to_array<std::string_view>({
    "Ford MkIIB-Ford V8 7.0L",
    "Chaparral 2D-Chevrolet V8 7.0L",
    "Lola T70 MkIII-Chevrolet V8 5.4L",
    "Chaparral 2F-Chevrolet V8 7.0L",
    "Ferrari 330/P4-Ferrari V12 4.0L",
    "Ford MkIV-Ford V8 7.0L",
    "Mirage M1-Ford V8 5.7L",
    "Ford MkI-Ford V8 4.7L",
    "Porsche 910-Porsche F8 2.2L",
});

// clang-format on

constexpr std::array<std::span<const std::string_view>, kModYearCount> kNames = {
    kNames1967, kNames1965, kNames1966, kNames1969, kNamesGT};

using YearEngines = std::array<Engine, kEngineSlots>;

struct EngineRow {
  int slot;
  Engine engine;
};

template <std::size_t N>
constexpr YearEngines Filled(const EngineRow (&rows)[N])
{
  YearEngines engines{};
  for (const EngineRow& row : rows) {
    engines[static_cast<std::size_t>(row.slot)] = row.engine;
  }
  return engines;
}

// Engines: slot, c0, c1, c2, c3, displacement, maximum rpm, gears, rear weight fraction; behind
// each the code of its chassis. Cars that run the same engine have a row each.

// clang-format off
constexpr YearEngines kEngines1967 = Filled({
    { 0, {    30,       0.0599f,    -4.99e-6f,    -8.43e-15f, 183,  8700, 5,  0.6f}},  // bb
    { 1, {99.84f, -0.043209396f,  1.17415e-5f, -6.59098e-10f, 183, 11200, 6, 0.64f}},  // br
    { 2, {    75,  0.019842517f,    1.002e-6f, -2.06652e-10f, 183, 10000, 5,  0.6f}},  // co
    { 3, {    75,  0.005159607f,  3.98244e-6f,  -3.4484e-10f, 183, 10400, 5, 0.61f}},  // ea
    { 4, {    73,  0.015385154f,  9.05915e-7f, -1.42033e-10f, 183, 10900, 5, 0.61f}},  // fe
    { 5, {    78,    0.0121547f,    4.382e-6f,   -4.763e-10f, 183,  9400, 5, 0.62f}},  // lo
    { 6, {86.32f,     -0.01792f,    6.583e-6f,   -3.857e-10f, 183, 11500, 5, 0.64f}},  // mu
    {20, {    83,   0.04134399f, -2.24675e-6f, -1.95235e-10f, 153,  8200, 5, 0.64f}},  // F2
    {21, {    88,   0.04537647f, -3.10673e-6f, -5.02432e-10f, 122,  6200, 4, 0.64f}},  // F3
});

constexpr YearEngines kEngines1965 = Filled({
    { 0, {153.05342f, -0.029015947f, 8.45091e-6f, -5.00207e-10f, 91, 11200, 5, 0.595f}},  // bb
    { 1, {139.21565f, -0.027038971f, 6.93846e-6f, -3.61443e-10f, 91, 12400, 6, 0.605f}},  // br
    { 2, {161.58588f,  -0.03357349f, 1.01499e-5f, -6.46943e-10f, 91, 10400, 6,   0.6f}},  // co
    { 3, {161.58588f,  -0.03357349f, 1.01499e-5f, -6.46943e-10f, 91, 10400, 6,   0.6f}},  // ea
    { 4, {119.23588f, -0.016583959f, 5.30146e-6f, -2.84226e-10f, 91, 12700, 5, 0.605f}},  // fe
    { 5, { 157.6396f, -0.033030536f, 9.40902e-6f, -5.61037e-10f, 91, 11200, 5,  0.61f}},  // lo
    { 6, {158.80035f, -0.040242262f, 8.77428e-6f, -4.26618e-10f, 91, 13500, 6,  0.58f}},  // mu
    {20, {134.73874f, -0.018078143f, 6.10798e-6f, -3.55747e-10f, 72, 12000, 6,  0.64f}},  // F2
    {21, {       135,  0.002581197f, 3.28863e-6f, -3.57659e-10f, 72,  9000, 5,  0.64f}},  // F3
});

constexpr YearEngines kEngines1966 = Filled({
    { 0, {22.746023f,   0.08572578f, -1.18798e-5f,  4.40968e-10f, 182.8f,  8700, 5,  0.6f}},  // bb
    { 1, {24.506542f,  0.101442926f, -1.52793e-5f,  5.93759e-10f, 152.3f,  7700, 5,  0.6f}},  // bc
    { 2, {12.991534f,   0.12436044f, -2.17536e-5f,   1.03476e-9f, 167.9f,  7200, 5,  0.6f}},  // bd
    { 3, {45.354908f,  0.019927789f,  1.56258e-6f, -2.04155e-10f, 116.9f, 11800, 6,  0.6f}},  // be
    { 4, { 27.73145f,  0.019690089f,  1.51679e-6f,  -2.0129e-10f, 182.8f, 11200, 6, 0.62f}},  // br
    { 5, { 50.53561f,  0.011808548f,   2.6063e-6f, -2.29391e-10f, 126.3f, 11500, 6,  0.6f}},  // bs
    { 6, {25.544254f,  0.052474357f, -4.70014e-6f,  7.80239e-11f, 182.4f, 10200, 5,  0.6f}},  // co
    { 7, { 66.48829f, -0.013887526f,  6.92665e-6f, -4.69618e-10f,    183, 10200, 5, 0.61f}},  // eb
    { 8, {12.991534f,   0.12436044f, -2.17536e-5f,   1.03476e-9f, 167.9f,  7200, 5,  0.6f}},  // ea
    { 9, {22.694687f,  0.048881534f, -3.93669e-6f,  5.01983e-11f, 182.4f, 10800, 5, 0.61f}},  // fe
    {10, {29.915022f,   0.06329057f, -6.29811e-6f,  1.13766e-10f, 147.5f,  9200, 5,  0.6f}},  // ff
    {11, {32.816986f,   0.04895175f,  -4.3105e-6f,  8.43583e-11f, 182.7f, 11400, 5, 0.61f}},  // mu
    {12, { 27.73145f,  0.019690089f,  1.51679e-6f,  -2.0129e-10f, 182.8f, 11200, 6, 0.62f}},  // lo
    {13, { 41.17136f,  0.059623633f, -5.45402e-6f,  8.29085e-11f, 120.5f,  9700, 5,  0.6f}},  // lp
    {14, {45.354908f,  0.019927789f,  1.56258e-6f, -2.04155e-10f, 116.9f, 11800, 6,  0.6f}},  // lq
    {15, {63.132782f,  -0.00875918f,  6.45478e-6f,   -4.787e-10f,    183, 10200, 5, 0.61f}},  // mc
    {20, {        75,   0.00849635f,  3.20722e-6f, -3.25449e-10f, 120.5f,  9800, 5, 0.64f}},  // F2
    {21, {        75,   0.00849635f,  3.20722e-6f, -3.25449e-10f,  91.2f,  9800, 5, 0.64f}},  // F3
});

constexpr YearEngines kEngines1969 = Filled({
    { 0, { 90, -0.000541781f,  5.4986e-6f, -4.47065e-10f, 183, 10300, 5, 0.64f}},  // bb
    { 1, { 75,  -0.00947932f, 5.90259e-6f, -3.86592e-10f, 183, 11200, 5, 0.63f}},  // br
    { 2, { 90, -0.000541781f,  5.4986e-6f, -4.47065e-10f, 183, 10300, 5, 0.64f}},  // co
    { 3, { 90, -0.000541781f,  5.4986e-6f, -4.47065e-10f, 183, 10300, 5, 0.64f}},  // ea
    { 4, { 75,  0.006527835f, 2.29717e-6f,  -1.8983e-10f, 183, 11500, 5, 0.63f}},  // fe
    { 5, { 90, -0.000541781f,  5.4986e-6f, -4.47065e-10f, 183, 10300, 5, 0.64f}},  // lo
    { 6, { 90, -0.000541781f,  5.4986e-6f, -4.47065e-10f, 183, 10300, 5, 0.64f}},  // mu
    {20, {100,  0.019824123f, 7.40234e-7f, -1.83275e-10f, 133, 10300, 5, 0.64f}},  // F2
    {21, {100,  0.013351068f,  2.2044e-6f, -3.31427e-10f,  93,  8800, 4, 0.64f}},  // F3
});

constexpr YearEngines kEnginesGT = Filled({
    { 0, {22.746023f,  0.08572578f, -1.18798e-5f,  4.40968e-10f, 426.3f, 6550, 4, 0.61f}},  // ga
    { 1, {24.506542f, 0.101442926f, -1.52793e-5f,  5.93759e-10f,    427, 6750, 3, 0.61f}},  // gb
    { 2, {12.991534f,  0.12436044f, -2.17536e-5f,   1.03476e-9f, 326.7f, 7050, 5,  0.6f}},  // gc
    { 3, {24.506542f, 0.101442926f, -1.52793e-5f,  5.93759e-10f,    427, 6750, 3, 0.61f}},  // gd
    { 4, {45.354908f, 0.019927789f,  1.56258e-6f, -2.04155e-10f, 242.1f, 8500, 5,  0.6f}},  // ge
    { 5, {22.746023f,  0.08572578f, -1.18798e-5f,  4.40968e-10f, 426.3f, 6550, 4, 0.61f}},  // gf
    { 6, { 27.73145f, 0.019690089f,  1.51679e-6f,  -2.0129e-10f, 351.9f, 6600, 5, 0.59f}},  // gg
    { 7, { 50.53561f, 0.011808548f,   2.6063e-6f, -2.29391e-10f,    289, 7050, 5, 0.58f}},  // gh
    { 8, {25.544254f, 0.052474357f, -4.70014e-6f,  7.80239e-11f,    134, 9300, 5,  0.6f}},  // gi
    {20, {        75,  0.00849635f,  3.20722e-6f, -3.25449e-10f, 120.5f, 9800, 5, 0.64f}},  // F2
    {21, {        75,  0.00849635f,  3.20722e-6f, -3.25449e-10f,  91.2f, 9800, 5, 0.64f}},  // F3
});

// clang-format on

constexpr std::array<YearEngines, kModYearCount> kEngines = {
    kEngines1967, kEngines1965, kEngines1966, kEngines1969, kEnginesGT};

std::span<const std::string_view> NamesOf(ModYear ModYearIndex)
{
  const auto year = static_cast<std::size_t>(ModYearIndex);
  if (year >= kNames.size()) {
    throw BoundsError("there is no mod year " + std::to_string(NumberOf(ModYearIndex)));
  }
  return kNames[year];
}

}  // namespace

int ChassisCount(ModYear ModYearIndex)
{
  return static_cast<int>(NamesOf(ModYearIndex).size());
}

std::string_view ChassisName(ModYear ModYearIndex, int slot)
{
  if (slot < 0 || slot >= ChassisCount(ModYearIndex)) {
    throw BoundsError("mod year " + std::to_string(NumberOf(ModYearIndex)) + " has no chassis " +
                      std::to_string(slot));
  }
  return NamesOf(ModYearIndex)[static_cast<std::size_t>(slot)];
}

const Engine& EngineOf(ModYear ModYearIndex, int engine_slot)
{
  const auto year = static_cast<std::size_t>(ModYearIndex);
  if (year >= kEngines.size() || engine_slot < 0 || engine_slot >= kEngineSlots) {
    throw BoundsError("mod year " + std::to_string(NumberOf(ModYearIndex)) + " has no engine " +
                      std::to_string(engine_slot));
  }
  return kEngines[year][static_cast<std::size_t>(engine_slot)];
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
