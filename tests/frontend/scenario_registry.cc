#include "frontend/scenario_registry.h"

#include <gtest/gtest.h>

namespace ferrow::frontend {
namespace {

class ScenarioTest : public ::testing::Test {
 public:
  explicit ScenarioTest(ScenarioBody body) : body_(body) {}
  void TestBody() override {
    ScenarioWorld world;
    std::unique_ptr<FrontEndDriver> driver = MakeDriver(world);
    body_(world, *driver);
  }

 private:
  ScenarioBody body_;
};

}  // namespace

bool RegisterScenario(const char* name, const char* file, int line, ScenarioBody body) {
  const std::string test = KnownDefect(name) ? std::string("DISABLED_") + name : std::string(name);
  ::testing::RegisterTest(FrontEndName(), test.c_str(), nullptr, nullptr, file, line,
                          [body]() -> ScenarioTest* { return new ScenarioTest(body); });
  return true;
}

}  // namespace ferrow::frontend
