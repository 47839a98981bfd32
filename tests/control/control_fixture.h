// A control window's logic against a recording view, fake window factory and
// fake services, over a real session in a temporary folder.
#pragma once

#include <string>

#include "control/control_window.h"
#include "control/fake_control_view.h"
#include "control/fake_services.h"
#include "testing/session_fixture.h"

namespace ferrow::testing {

class ControlFixture : public SessionTest {
 protected:
  ControlFixture() {
    options.FileDefaults = static_cast<const FileOptions&>(options);
    view.logic = &menu;
    routed.SetTarget(&menu);
  }
  std::string MakeLog(const std::string& name, const std::string& text) {
    const std::string path = dir.File(name);
    WriteBytes(path, text);
    return path;
  }

  FakeServices services;
  RoutedUi routed{services};
  Session app{env, options, routed};
  FakeControlView view;
  FakeWindowFactory windows;
  ControlWindow menu{app, view, windows, services};
};

}  // namespace ferrow::testing
