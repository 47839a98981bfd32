// A control window over a real configuration file and real followed files,
// offscreen, with scripted message boxes.
#pragma once

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QToolButton>
#include <memory>

#include "qt/Form1.h"
#include "control/fake_services.h"
#include "testing/session_fixture.h"

namespace ferrow::testing {

class Form1Test : public SessionTest {
 protected:
  Form1Test() {
    options.FileDefaults = static_cast<const FileOptions&>(options);
    form = std::make_unique<Form1>(app, services);
    routed.SetTarget(&form->Logic());
  }
  ~Form1Test() override {
    form->close();
    form.reset();
    QApplication::processEvents();
  }
  std::string MakeLog(const std::string& name, const std::string& text) {
    const std::string path = dir.File(name);
    WriteBytes(path, text);
    return path;
  }
  void Type(const std::string& name) { form->cmbFileName->setEditText(QString::fromStdString(name)); }
  void Key(QWidget* target, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(target, &press);
  }
  std::string Caption() { return form->Logic().MenuCaption(); }

  FakeServices services;
  RoutedUi routed{services};
  Session app{env, options, routed};  // as the program wires it: core's messages reach the window
  std::unique_ptr<Form1> form;
};

}  // namespace ferrow::testing
