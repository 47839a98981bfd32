// The file name box with its history list, the plain name field, drops on
// the window and on the box, and the tip label.
#include "about/shortcut_files.h"
#include "about/tips.h"
#include "config/history.h"
#include "control/control_window.h"
#include "session/session.h"
#include "support/paths.h"
#include "support/strings.h"

namespace ferrow {

void ControlWindow::cmbFileName_Change() {
  view_.SetEnabled(Control::cmdLink, false);
  if (FileNameBoxText().empty()) return;  // an emptied box leaves Open as it was
  view_.SetEnabled(Control::cmdOK, true);
  ClearCheckBoxes();
  view_.SetEnabled(Control::cmdLink, session_.options.HelperLibraryVersion > 0);
}

// Picking from the list, and only that: typing or dropping a name that is
// also in the history is not picking it.
void ControlWindow::cmbFileName_Click() {
  if (!FileNameBoxText().empty()) {
    view_.SetEnabled(Control::cmdOK, true);
    SetCheckboxesDefault();
    ClearCheckBoxes();
  } else {
    view_.SetEnabled(Control::cmdOK, false);
  }
  view_.SetEnabled(Control::cmdLink, session_.options.HelperLibraryVersion > 0);
}

void ControlWindow::PickHighlightedEntry() {
  const int index = view_.HighlightedListIndex();
  if (index < 0) return;
  const std::vector<std::string> list = view_.List();
  if (static_cast<size_t>(index) >= list.size()) return;
  view_.SetText(Control::cmbFileName, list[static_cast<size_t>(index)]);
  cmbFileName_Click();
}

void ControlWindow::cmbFileName_GotFocus() { view_.SelectBoxText(); }

void ControlWindow::cmbFileName_KeyPress(int character) {
  if (character == 13) OK_Click();
}

// SHIFT+DEL removes the history entry the user sees, here and in the stored
// history; what the box shows stays as it is. The removal holds the write
// lock while its writes let events run: it is an operation of the gate, so
// an open asked for meanwhile is dropped (it would wait for this process's
// own lock) and a close runs after it, with the lock free again.
void ControlWindow::cmbFileName_KeyDown(int key_code, int shift) {
  if (key_code != keys_down::kDelete || shift != keys_down::kShift) return;
  session_.gate.Run(WindowGate::Work::kHistory, [&] {
    const int index = ShownHistoryIndex();
    if (index < 0) return;
    const std::string name = view_.List()[static_cast<size_t>(index)];
    if (name.empty()) return;
    RemoveFromHistory(session_, name);
    view_.RemoveListItem(index);
  });
}

int ControlWindow::ShownHistoryIndex() {
  const int highlighted = view_.HighlightedListIndex();
  if (highlighted >= 0) return highlighted;
  const std::vector<std::string> list = view_.List();
  const std::string shown = FileNameBoxText();
  // Names are compared without regard to case, as the history keeps them.
  for (size_t i = 0; i < list.size(); ++i)
    if (EqualsNoCase(list[i], shown)) return static_cast<int>(i);
  return -1;
}

void ControlWindow::cmbFileName_OLEDragDrop(const std::vector<std::string>& names) {
  if (names.empty() || names.front().empty()) return;
  const std::string& name = names.front();
  SetFileNameBox(name);
  // Only a library recent enough resolves shortcuts; else the shortcut's own
  // path stays.
  if (!IsShortcutFile(name) || !session_.options.HelperLibraryInUse || !session_.helper) return;
  const std::string target = session_.helper->GetLinkTarget(name).value_or("");
  if (!target.empty() && FileExists(session_.env, target)) SetFileNameBox(target);
}

void ControlWindow::Form_OLEDragDrop(const std::vector<std::string>& names) {
  if (!names.empty()) SetFileNameBox(names.front());
}

void ControlWindow::txtFileName_Change() {
  const std::string text = view_.Text(Control::txtFileName);
  view_.SetEnabled(Control::cmdOK, !text.empty());
  if (!text.empty()) session_.options.FileName = text;
}

void ControlWindow::ShowTip() { view_.SetText(Control::lblDragDropTip, ferrow::ShowTip(LastTip, random_)); }

void ControlWindow::FillHistoryList() {
  const Options& o = session_.options;
  std::vector<std::string> names;
  for (int i = 0; i < o.HistoryTotal; ++i)
    if (!o.HistoryList[static_cast<size_t>(i)].empty()) names.push_back(o.HistoryList[static_cast<size_t>(i)]);
  view_.SetList(names);
}

}  // namespace ferrow
