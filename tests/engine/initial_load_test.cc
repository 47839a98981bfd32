#include <gtest/gtest.h>

#include <random>

#include "display/filters.h"
#include "display/rich_document.h"
#include "engine/engine_fixture.h"
#include "engine/file_reader.h"
#include "platform/env.h"
#ifndef _WIN32
#include <sys/stat.h>

#include "testing/processes.h"
#endif

namespace ferrow {
namespace {

using testing::EngineTest;

class InitialLoad : public EngineTest {
 protected:
  void Load(int32_t lines = 0) { follower.LoadFileToTextBox(log, windows.box, lines); }
};

TEST_F(InitialLoad, LastTwoOfThreeLinesAreShownButAskingForThreeShowsNothing) {
  Append("one\ntwo\nthree\n");
  Load(2);
  EXPECT_EQ(Shown(), "two\nthree\n");
  Load(3);
  EXPECT_EQ(Shown(), "");
}

TEST_F(InitialLoad, SmallBufferReadsFromTheStartUpToTheBufferAndTwo) {
  options.MaxInputLength = 1024;
  std::string text;
  for (int i = 0; i < 300; ++i) text += "line " + std::to_string(i) + "\n";
  Append(text);
  EXPECT_EQ(ReadFileTail(env, log, env.FileLength(log).value_or(0), 1024).size(), 1026u);
  EXPECT_EQ(ReadFileTail(env, log, env.FileLength(log).value_or(0), 1024).substr(0, 6), "line 0");
}

TEST_F(InitialLoad, DefaultBufferOnA300000ByteFileStartsAtOffset44002) {
  std::string content;
  for (int i = 0; content.size() < 300000; ++i) content += std::to_string(i % 10);
  content.resize(300000);
  testing::WriteBytes(log, content);
  std::string read = ReadFileTail(env, log, 300000, 256000);
  EXPECT_EQ(read.size(), 255998u);
  EXPECT_EQ(read, content.substr(44002));
}

TEST_F(InitialLoad, BufferOver1048576IsCappedAndTheCapKept) {
  options.MaxInputLength = 2048 * 1024;
  Append("x\n");
  Load();
  EXPECT_EQ(options.MaxInputLength, 1048576);
}

TEST_F(InitialLoad, FilterLineIsInColourTwoAndTheNextLineBackInColourOne) {
  options.FontColour = 0xBEBEBE;
  options.FilterColour = 0xFF0000;
  options.FilterString = "error";
  RebuildFilterWords(options);
  Append("ok\nan error\nok again\n");
  Load();
  EXPECT_EQ(windows.box.Runs(), (std::vector<testing::Insertion>{
                                    {"ok\n", 0xBEBEBE}, {"an error", 0xFF0000}, {"\nok again\n", 0xBEBEBE}}));
}

TEST_F(InitialLoad, TheBoxGetsTheDocumentBackColourAndCaretAtTheEnd) {
  options.BackColour = 0x102030;
  Append("a\nb\n");
  windows.box.enabled = false;
  Load();
  EXPECT_EQ(windows.box.back_colour, 0x102030);
  EXPECT_TRUE(windows.box.enabled);
  EXPECT_EQ(windows.box.sel_start, windows.box.TextLength());
  EXPECT_EQ(windows.captions.front(), "Ferrow - Loading app.log...");
  EXPECT_EQ(windows.captions.back(), "Ferrow - " + log + " (0 bytes) [2]");
}

TEST_F(InitialLoad, CaptionEveryHundredLinesWithGrowingDots) {
  std::string text;
  for (int i = 0; i < 250; ++i) text += "0123456789\n";
  Append(text);
  Load();
  ASSERT_GE(windows.captions.size(), 4u);
  EXPECT_EQ(windows.captions[1], "Ferrow - Loading app.log - 100 lines read (1,000 bytes) ..");
  EXPECT_EQ(windows.captions[2], "Ferrow - Loading app.log - 200 lines read (2,000 bytes) ....");
}

TEST_F(InitialLoad, DocumentIsKeptWithinTheBufferByDroppingTheOldestLines) {
  options.MaxInputLength = 2000;
  std::string text;
  for (int i = 0; i < 500; ++i) text += "line " + std::to_string(i) + "\n";
  Append(text);
  Load();
  EXPECT_LT(Shown().size(), 2000u);
  EXPECT_EQ(Shown().substr(Shown().size() - 9), "line 499\n");
}

// Watches the reads of the followed file: the largest single read asked for.
class ReadWatchEnv : public testing::ProfileWriteEnv {
 public:
  class Watched : public SharedFile {
   public:
    Watched(std::unique_ptr<SharedFile> file, int64_t& largest) : file_(std::move(file)), largest_(largest) {}
    bool Seek(int64_t offset) override { return file_->Seek(offset); }
    int64_t Read(char* buffer, int64_t size) override {
      largest_ = std::max(largest_, size);
      return file_->Read(buffer, size);
    }

   private:
    std::unique_ptr<SharedFile> file_;
    int64_t& largest_;
  };
  std::unique_ptr<SharedFile> OpenShared(const std::string& path) override {
    auto file = ProfileWriteEnv::OpenShared(path);
    return file ? std::make_unique<Watched>(std::move(file), largest_read) : nullptr;
  }
  int64_t largest_read = 0;
};

TEST_F(InitialLoad, HugeLineCountReadsOnlyWhatTheBufferCanShowAndShowsTheSameLines) {
  options.MaxInputLength = 65536;
  std::string text;
  for (int i = 0; i < 400000; ++i) text += "line " + std::to_string(1000000 + i) + "\n";  // 13 bytes
  testing::WriteBytes(log, text);
  ReadWatchEnv watch;
  Session s{watch, options, ui};
  Follower f(s, windows);
  f.LoadFileToTextBox(log, windows.box, 300000);
  EXPECT_LE(watch.largest_read, 3 * 65536);
  EXPECT_GT(watch.event_runs, 5200000 / 65536);  // the scan let events run
  const std::string shown = Shown();
  EXPECT_EQ(shown.substr(shown.size() - 13), "line 1399999\n");

  // The same file cut to its last 20000 lines, which still overflow the
  // buffer, shows exactly the same.
  testing::WriteBytes(log, text.substr(text.size() - 13 * 20000));
  windows.box.SetText("");
  Load(19999);
  EXPECT_EQ(Shown(), shown);
}

#ifndef _WIN32
TEST_F(InitialLoad, FifoDroppedAsTheFollowedFileIsNeverWaitedOn) {
  ASSERT_EQ(::mkfifo(log.c_str(), 0600), 0);
  EXPECT_TRUE(testing::FinishesWithoutAWriter(log, [&] {
    Load(0);
    Load(5);
    Tick();
    follower.ReadChangedFile(log, 1);
  }));
}
#endif

TEST_F(InitialLoad, BufferSmallerThanTheHeaderRestartsTheLogWindowAndEnds) {
  options.MaxInputLength = 100;
  Append("first\nsecond\n");
  Load();
  EXPECT_NE(Shown().find(" Log window cleared *"), std::string::npos) << Shown();
  EXPECT_NE(Shown().find("second"), std::string::npos);
}

TEST_F(InitialLoad, TerminalBelowTenUsesTheOemHeader) {
  options.Font = "Terminal";
  options.FontSize = 8;
  Append("x\n");
  class CapturingBox : public testing::FakeTextBox {
   public:
    void SetTextRTF(const std::string& document) override {
      last = document;
      FakeTextBox::SetTextRTF(document);
    }
    std::string last;
  } box;
  follower.LoadFileToTextBox(log, box, 0);
  EXPECT_EQ(box.last.rfind("{\\rtf1\\ansi\\ansicpg850\\deff0{\\fonttbl{\\f0\\fnil\\fcharset255 Terminal;}}", 0), 0u);
  options.FontSize = 10;
  follower.LoadFileToTextBox(log, box, 0);
  EXPECT_EQ(box.last.rfind("{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fswiss\\fcharset0 Terminal;}}", 0), 0u);
}

TEST_F(InitialLoad, MissingFileOrWrongBoxIsLeftSilently) {
  windows.box.SetText("untouched");
  Load();
  EXPECT_EQ(Shown(), "untouched");
  Append("x\n");
  windows.box.type_name = "Frame";
  Load();
  EXPECT_EQ(Shown(), "untouched");
  EXPECT_TRUE(ui.messages.empty());
}

TEST_F(InitialLoad, UnreadableFileInLinesModeSaysItIsNotAccessible) {
  Append("x\n");
  class BrokenReadEnv : public testing::ProfileWriteEnv {
   public:
    std::unique_ptr<SharedFile> OpenShared(const std::string&) override { return nullptr; }
  } broken;
  Session s{broken, options, ui};
  Follower f(s, windows);
  f.LoadFileToTextBox(log, windows.box, 5);
  EXPECT_EQ(ui.messages, (std::vector<std::string>{"Error|File " + log + " is not accessible"}));
  EXPECT_FALSE(windows.box.enabled);
  f.LoadFileToTextBox(log, windows.box, 0);  // in buffer mode it is no error: nothing shown
  EXPECT_EQ(ui.messages.size(), 1u);
  EXPECT_TRUE(windows.box.enabled);
}

TEST_F(InitialLoad, BytesWrittenBetweenTheRecordedLengthAndTheLoadAreShownTwice) {
  Append("first\n");
  options.LastFileSize = env.FileLength(log).value_or(0);
  Append("racing\n");
  Load();
  Tick();
  EXPECT_EQ(Shown(), "first\nracing\nracing\n");
}

// The document the load builds equals the one stripping line by line gives.
TEST(StripRTFLine, DropsTheFirstLineAfterTheHeader) {
  EXPECT_EQ(StripRTFLine("HEAD a\\par\r\nb\\par\r\n", 5), "HEAD b\\par\r\n");
  EXPECT_EQ(StripRTFLine("HEAD", 4), "");
}

TEST_F(InitialLoad, LinearStrippingGivesTheLineByLineDocument) {
  std::mt19937 random(5);
  for (int round = 0; round < 20; ++round) {
    options.MaxInputLength = static_cast<int32_t>(400 + random() % 3000);
    std::string text;
    std::vector<std::string> lines;
    for (int i = 0, n = 2 + static_cast<int>(random() % 200); i < n; ++i) {
      std::string line(random() % 80 + 1, static_cast<char>('a' + random() % 26));
      lines.push_back(line);
      text += line + "\r\n";
    }
    testing::WriteBytes(log, text);
    class CapturingBox : public testing::FakeTextBox {
     public:
      void SetTextRTF(const std::string& d) override { last = d; }
      std::string last;
    } box;
    // Lines mode: everything after the first line.
    follower.LoadFileToTextBox(log, box, static_cast<int32_t>(lines.size() - 1));
    lines.erase(lines.begin());
    // The same document, trimmed the slow way.
    const std::string header = box.last.substr(0, box.last.find("\\cf1 ") + 5);
    std::string doc = header;
    for (const std::string& line : lines) {
      while (doc.size() >= static_cast<size_t>(options.MaxInputLength)) doc = StripRTFLine(doc, header.size());
      doc += "\\b0 " + line + "\\par\r\n";
    }
    EXPECT_EQ(box.last, doc + "}") << round;
  }
}

}  // namespace
}  // namespace ferrow
