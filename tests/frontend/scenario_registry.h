// How the scenarios, written once, become one test per front-end: each
// SCENARIO registers itself with GoogleTest under the front-end's suite
// name; a scenario the front-end is known to fail is registered DISABLED_,
// so it is kept and still listed. Each front-end's file defines the three
// functions below.
#pragma once

#include <memory>
#include <string>

#include "frontend/front_end_driver.h"

namespace ferrow::frontend {

// The suite name, e.g. "QtFrontEnd".
const char* FrontEndName();
// Why this front-end fails `scenario` today (the wrong behaviour it shows),
// or nullptr when it is expected to pass.
const char* KnownDefect(const std::string& scenario);
std::unique_ptr<FrontEndDriver> MakeDriver(ScenarioWorld& world);

using ScenarioBody = void (*)(ScenarioWorld& world, FrontEndDriver& driver);
bool RegisterScenario(const char* name, const char* file, int line, ScenarioBody body);

}  // namespace ferrow::frontend

#define FERROW_SCENARIO(name)                                                                    \
  static void Scenario_##name(ferrow::frontend::ScenarioWorld& w, ferrow::frontend::FrontEndDriver& d); \
  [[maybe_unused]] static const bool scenario_registered_##name =                                \
      ferrow::frontend::RegisterScenario(#name, __FILE__, __LINE__, &Scenario_##name);           \
  static void Scenario_##name([[maybe_unused]] ferrow::frontend::ScenarioWorld& w,              \
                              [[maybe_unused]] ferrow::frontend::FrontEndDriver& d)
