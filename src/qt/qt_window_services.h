// The modal boxes and the open-file dialog of the Qt windows.
#pragma once

#include <string>

#include "control/window_services.h"

namespace ferrow {

class WindowGate;

// QMessageBox and QFileDialog. Their own event loops count as event passes
// of `gate`, when given.
class QtWindowServices : public WindowServices {
 public:
  WindowGate* gate = nullptr;
  void Message(const std::string& text, const std::string& title, MessageIcon icon) override;
  bool AskYesNo(const std::string& text, const std::string& title, MessageIcon icon) override;
  std::string OpenFileName(const std::string& title, const std::string& filter,
                           const std::string& start_folder) override;
};

// "Log Files|*.log|All Files (*.*)|*.*|" as Qt writes it:
// "Log Files (*.log);;All Files (*.*) (*)".
std::string QtFileFilter(const std::string& filter);

}  // namespace ferrow
