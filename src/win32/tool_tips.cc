#include "win32/tool_tips.h"

#include <commctrl.h>

#include "win32/ansi_text.h"

namespace ferrow::win32 {
namespace {

// The tip of `control`, by its window handle; the control's messages reach
// the tips through the tips' own subclassing.
TOOLINFOA ToolOf(HWND owner, HWND control, std::string& text) {
  TOOLINFOA tool{};
  tool.cbSize = sizeof(tool);
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = owner;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = text.data();
  return tool;
}

}  // namespace

ToolTips::ToolTips(HWND owner, int max_width) : owner_(owner) {
  tips_ = CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                          CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, owner, nullptr,
                          GetModuleHandleA(nullptr), nullptr);
  SendMessageA(tips_, TTM_SETMAXTIPWIDTH, 0, max_width);
}

void ToolTips::Add(HWND control, const std::string& tip) {
  std::string text = ToAnsi(tip);
  TOOLINFOA tool = ToolOf(owner_, control, text);
  SendMessageA(tips_, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
}

void ToolTips::Set(HWND control, const std::string& tip) {
  std::string text = ToAnsi(tip);
  TOOLINFOA tool = ToolOf(owner_, control, text);
  SendMessageA(tips_, TTM_UPDATETIPTEXTA, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace ferrow::win32
