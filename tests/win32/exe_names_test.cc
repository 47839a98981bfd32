// File names outside ASCII in the real ferrow.exe under Wine: every name is
// in the ANSI code page, whether it came from the command line, the Open
// dialog or the history, so such a file opens, is followed and comes back.
#include <gtest/gtest.h>

#include <string>

#include "testing/temp_dir.h"
#include "win32/control_ids.h"
#include "win32/exe_fixture.h"

namespace ferrow::win32 {
namespace {

using testing::ReadBytes;
using testing::WriteBytes;

std::wstring WideFromAnsi(const std::string& ansi) {
  std::wstring wide(ansi.size(), L'\0');
  wide.resize(static_cast<size_t>(MultiByteToWideChar(CP_ACP, 0, ansi.data(), static_cast<int>(ansi.size()),
                                                      wide.data(), static_cast<int>(wide.size()))));
  return wide;
}

// Whether the code page holds `wide` as it is, and its form there.
bool ToAnsiExactly(const std::wstring& wide, std::string* ansi) {
  BOOL lost = FALSE;
  ansi->assign(wide.size() * 2, '\0');
  ansi->resize(static_cast<size_t>(WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide.data(),
                                                       static_cast<int>(wide.size()), ansi->data(),
                                                       static_cast<int>(ansi->size()), nullptr, &lost)));
  return !lost && WideFromAnsi(*ansi) == wide;
}

std::wstring WideTextOf(HWND window) {
  std::wstring text(static_cast<size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
  text.resize(static_cast<size_t>(
      SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  return text;
}

class FerrowNames : public FerrowExeTest {
 protected:
  void SetUp() override {
    folder = WideFromAnsi(ferrow.dir().path()) + L"\\caf\u00e9";
    name = folder + L"\\na\u00efve.log";
    if (!ToAnsiExactly(name, &ansi)) GTEST_SKIP() << "the code page " << GetACP() << " has no accents";
    ASSERT_TRUE(CreateDirectoryW(folder.c_str(), nullptr));
    WriteBytes(ansi, "one\r\ntwo\r\n");
    WIN32_FILE_ATTRIBUTE_DATA data{};
    ASSERT_TRUE(GetFileAttributesExA(ansi.c_str(), GetFileExInfoStandard, &data));
    ASSERT_EQ(data.nFileSizeLow, 10u);
  }
  HWND Box() { return GetDlgItem(ferrow.ControlWindow(), kIdFileName); }
  void Click(int id) { PostMessageA(Button(id), BM_CLICK, 0, 0); }
  // The file is open, and followed: what is added shows in the title.
  void ExpectFollowed() {
    ASSERT_TRUE(Ready());
    ASSERT_TRUE(WaitUntil([&] { return TextOf(ferrow.TextWindow()).find(ansi + " (10 bytes)") != std::string::npos; }))
        << TextOf(ferrow.TextWindow());
    WriteBytes(ansi, "one\r\ntwo\r\nthree\r\n");
    EXPECT_TRUE(WaitUntil([&] { return TextOf(ferrow.TextWindow()).find(ansi + " (17 bytes)") != std::string::npos; }))
        << TextOf(ferrow.TextWindow());
  }
  std::wstring folder, name;
  std::string ansi;
};

TEST_F(FerrowNames, ANameFromTheCommandLineShowsWholeOpensAndComesBackFromTheHistory) {
  ASSERT_TRUE(ferrow.Start("/F \"" + ansi + "\""));
  ExpectFollowed();
  EXPECT_EQ(WideTextOf(Box()), name);
  ferrow.Close();
  ASSERT_TRUE(ferrow.Ended());
  EXPECT_NE(ReadBytes(ferrow.IniPath()).find("=" + ansi + "\r\n"), std::string::npos) << ReadBytes(ferrow.IniPath());

  // A second run picks it from the history and opens it.
  FerrowProcess again;
  CopyFileA(ferrow.IniPath().c_str(), again.IniPath().c_str(), FALSE);
  ASSERT_TRUE(again.Start("/F"));
  HWND control = again.ControlWindow();
  ASSERT_TRUE(control);
  HWND box = GetDlgItem(control, kIdFileName);
  const LRESULT index = SendMessageW(box, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                     reinterpret_cast<LPARAM>(name.c_str()));
  ASSERT_NE(index, CB_ERR) << "the history list holds the name";
  SendMessageW(box, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
  SendMessageW(control, WM_COMMAND, MAKEWPARAM(kIdFileName, CBN_SELENDOK), reinterpret_cast<LPARAM>(box));
  EXPECT_EQ(WideTextOf(box), name);
  PostMessageA(GetDlgItem(control, kIdOK), BM_CLICK, 0, 0);
  ASSERT_TRUE(again.Window("FerrowTextWindow", ansi + " (17 bytes)"));
}

// The Open dialog's file name field: its only edit field.
BOOL CALLBACK FindEdit(HWND child, LPARAM found) {
  char name[16] = {};
  GetClassNameA(child, name, sizeof(name));
  if (lstrcmpiA(name, "Edit") != 0 || !IsWindowVisible(child)) return TRUE;
  *reinterpret_cast<HWND*>(found) = child;
  return FALSE;
}

HWND DialogNameField(HWND dialog) {
  HWND field = nullptr;
  EnumChildWindows(dialog, &FindEdit, reinterpret_cast<LPARAM>(&field));
  return field;
}

bool ChooseInDialog(FerrowProcess& ferrow, const std::wstring& file) {
  HWND dialog = ferrow.Window("#32770", "Select Log File");
  EXPECT_TRUE(dialog);
  if (!dialog) return false;
  HWND field = DialogNameField(dialog);
  EXPECT_TRUE(field);
  if (!field) return false;
  SendMessageW(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(file.c_str()));
  PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDOK)));
  return WaitUntil([&] { return !IsWindow(dialog) || !IsWindowVisible(dialog); });
}

TEST_F(FerrowNames, ANamePickedInTheOpenDialogOpensAndIsFollowed) {
  ASSERT_TRUE(ferrow.Start(""));
  ASSERT_TRUE(ferrow.ControlWindow());
  ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(Button(kIdBrowse)) != FALSE; }));
  Click(kIdBrowse);
  ASSERT_TRUE(ChooseInDialog(ferrow, name));
  ASSERT_TRUE(WaitUntil([&] { return WideTextOf(Box()) == name; })) << TextOf(Box());
  Click(kIdOK);
  ExpectFollowed();
  EXPECT_FALSE(ferrow.Window("#32770", "File Access Error", 0));
}

// Under a Western code page a Japanese name has no ANSI form: the user is
// told, and no file is opened, neither it nor a look-alike.
TEST_F(FerrowNames, ANameTheCodePageCannotHoldIsRefusedWithAMessage) {
  const std::wstring cjk = folder + L"\\\u65e5\u672c.log";
  std::string lost;
  if (ToAnsiExactly(cjk, &lost)) GTEST_SKIP() << "the code page " << GetACP() << " holds it";
  HANDLE file = CreateFileW(cjk.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  ASSERT_NE(file, INVALID_HANDLE_VALUE);
  CloseHandle(file);
  ASSERT_TRUE(ferrow.Start(""));
  ASSERT_TRUE(ferrow.ControlWindow());
  ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(Button(kIdBrowse)) != FALSE; }));
  SetWindowTextA(Box(), "");
  Click(kIdBrowse);
  ASSERT_TRUE(ChooseInDialog(ferrow, cjk));
  HWND message = ferrow.Window("#32770", "File Access Error");
  ASSERT_TRUE(message);
  EXPECT_EQ(ferrow.MessageText(message),
            "Can't open: " + ansi.substr(0, ansi.rfind('\\')) + "\\??.log\r\n\r\n"
            "The name holds characters that this system's code page cannot show (shown here as ?). "
            "Rename the file or its folder, then try again.");
  PostMessageA(message, WM_COMMAND, IDOK, 0);
  ASSERT_TRUE(WaitUntil([&] { return !IsWindow(message); }));
  EXPECT_EQ(TextOf(Box()), "") << "the name is not taken";
  EXPECT_FALSE(ferrow.Window("FerrowTextWindow", "", 500));
}

TEST_F(FerrowNames, ANameOnTheCommandLineTheCodePageCannotHoldIsRefusedWithAMessage) {
  const std::wstring cjk = folder + L"\\\u65e5\u672c.log";
  std::string lost;
  if (ToAnsiExactly(cjk, &lost)) GTEST_SKIP() << "the code page " << GetACP() << " holds it";
  HANDLE file = CreateFileW(cjk.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  ASSERT_NE(file, INVALID_HANDLE_VALUE);
  CloseHandle(file);
  ASSERT_TRUE(ferrow.StartWide(L"/F \"" + cjk + L"\""));
  HWND message = ferrow.Window("#32770", "File Access Error");
  ASSERT_TRUE(message);
  EXPECT_EQ(ferrow.MessageText(message),
            "Can't open: " + ansi.substr(0, ansi.rfind('\\')) + "\\??.log\r\n\r\n"
            "The name holds characters that this system's code page cannot show (shown here as ?). "
            "Rename the file or its folder, then try again.");
  PostMessageA(message, WM_COMMAND, IDOK, 0);
  ASSERT_TRUE(ferrow.ControlWindow());
  ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(Button(kIdBrowse)) != FALSE; }));
  EXPECT_FALSE(ferrow.Window("#32770", "", 1000)) << "one message, and no other file opened";
  EXPECT_EQ(TextOf(Box()), "");
  EXPECT_FALSE(ferrow.Window("FerrowTextWindow", "", 0));
}

}  // namespace
}  // namespace ferrow::win32
