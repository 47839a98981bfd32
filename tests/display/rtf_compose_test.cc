#include "display/rtf_compose.h"

#include <gtest/gtest.h>

#include <cstring>

#include "display/filters.h"
#include "ferrow_helper.h"
#include "display/rich_document.h"
#include "testing/session_fixture.h"

namespace ferrow {
namespace {

using testing::SessionTest;

TEST(RTFHelpers, ColourBoldAndSize) {
  EXPECT_EQ(RTFColour(0x00FFFF), "\\Red255\\Green255\\Blue0");
  EXPECT_EQ(RTFColour(0x800000), "\\Red0\\Green0\\Blue128");
  EXPECT_EQ(RTFBold(true), "\\b ");
  EXPECT_EQ(RTFBold(false), "\\b0 ");
  EXPECT_EQ(RTFFontSize(10), "\\fs20");
  EXPECT_EQ(RTFFontSize(9), "\\fs18");
}

TEST(DocumentHeader, TerminalBelowTenUsesTheOemHeader) {
  EXPECT_EQ(DocumentHeader("Terminal", 9),
            "{\\rtf1\\ansi\\ansicpg850\\deff0{\\fonttbl{\\f0\\fnil\\fcharset255 Terminal;}}");
  EXPECT_EQ(DocumentHeader("terminal", 10),
            "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fswiss\\fcharset0 "
            "terminal;}}");
}

class ComposeTest : public SessionTest {
 protected:
  ComposeTest() {
    options.Font = "Arial";
    options.FontSize = 10;
    options.FontColour = 0xFFFFFF;
    options.FilterColour = 0x00FFFF;
    options.FilterString = "error";
    RebuildFilterWords(options);
  }
};

TEST_F(ComposeTest, ExampleDocumentByteForByte) {
  EXPECT_EQ(ComposeInitialDocument(session, {"start", "Error 5"}, 10, false),
            "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fswiss\\fcharset0 "
            "Arial;}}{\\colortbl ;\\Red255\\Green255\\Blue255;\\Red255\\Green255\\Blue0;"
            "\\red0\\green255\\blue0;\\red0\\green0\\blue255;}{\\*\\generator Msftedit "
            "5.41.15.1503;}\\viewkind4\\uc1\\pard\\f0\\fs20\\b0 \\cf1 \\b0 start\\par\r\n"
            "\\cf2 \\b0 Error 5\\cf1 \\par\r\n}");
}

TEST_F(ComposeTest, LinesAreEscapedSoBracesShowPlainInTheDocument) {
  std::string doc = ComposeInitialDocument(session, {"{x} C:\\dir"}, 10, true);
  EXPECT_NE(doc.find("\\b \\{x\\} C:\\\\dir\\par\r\n"), std::string::npos);
  EXPECT_EQ(ReadRtf(doc).PlainText(), "{x} C:\\dir\n");
}

// A stand-in companion library whose escaping is recognisable.
char* FERROW_CALL MarkedFilter(char* line) {
  std::string out = std::string("<") + line + ">";
  char* copy = static_cast<char*>(std::malloc(out.size() + 1));
  std::memcpy(copy, out.c_str(), out.size() + 1);
  return copy;
}

class MarkingEnv : public testing::CountingEnv {
 public:
  void* OpenLibrary(const std::string&) override { return this; }
  void* LibrarySymbol(void*, const char* name) override {
    return std::strcmp(name, "RTFFilter") == 0 || std::strcmp(name, "RTFFilterNoSlash") == 0
               ? reinterpret_cast<void*>(&MarkedFilter)
               : nullptr;
  }
  void FreeLibraryString(char* text) override { std::free(text); }
};

TEST_F(ComposeTest, CompanionLibraryEscapesOnlyWhenInUse) {
  MarkingEnv marking;
  HelperLibrary library = HelperLibrary::BindFile(marking, "ferrow");
  session.helper = &library;
  EXPECT_EQ(EscapeDocumentLine(session, "{a}"), "\\{a\\}");
  EXPECT_EQ(EscapeAppendBlock(session, "\\{a}"), "\\\\{a\\}");
  options.HelperLibraryInUse = true;
  EXPECT_EQ(EscapeDocumentLine(session, "{a}"), "<{a}>");
  EXPECT_EQ(EscapeAppendBlock(session, "{a}"), "<{a}>");
}

}  // namespace
}  // namespace ferrow
