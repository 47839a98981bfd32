#include "about/tips.h"

#include "about/product.h"
#include "support/random.h"

namespace ferrow {

const std::array<std::string, kTipCount>& Tips() {
  static const std::array<std::string, kTipCount> tips = [] {
    std::array<std::string, kTipCount> t;
    for (int i : {0, 3, 6, 9, 12, 15, 18, 21, 24, 27, 30, 34, 39})
      t[i] = "Drag and drop files onto the input bar";
    const std::string product = kProductName;
    t[1] = "You can drop files into the text window";
    t[2] = "UNC paths (\\\\server\\path) are supported)";
    t[4] = "You can hurt yourself if you run with scissors";
    t[5] = "You can set custom themes for each file";
    t[7] = "You can use custom sounds for each file";
    t[8] = "You can monitor any type of text file";
    t[10] = "More settings are available by clicking the spanner icon";
    t[11] = "Press ENTER in the file name box to open the file";
    t[13] = "Click [?] to see the command-line options";
    t[14] = "Click the binoculars to set highlight-filters";
    t[16] = "You can pause and restart monitoring at any time";
    t[17] = "Lines with filter words show in the filter colour";
    t[19] = "Dont eat yellow snow";
    t[20] = "If a file shrinks you won't see any output";
    t[22] = "I see you're monitoring files - would you like help?";
    t[23] = "You can have the window flash and alert on update";
    t[25] = "You can visit the website for more help and info";
    t[26] = "You can improve your health with Vitamin D and UVB";
    t[28] = "Start one " + product + " for each file you want to watch";
    t[29] = "Enjoy yourself before you get too old";
    t[31] = "You can associate *.LOG files with " + product;
    t[32] = "You can create desktop shortcuts to logs for " + product;
    t[33] = "Hover the mouse over a control for more information";
    t[35] = "UNC files appear at the end of the history list";
    t[36] = "Recommended max number of Ferrow sessions is 50";
    t[37] = "Click [?] for command-line arguments and info";
    t[38] = "You can remove filenames from history with SHIFT+DEL";
    t[40] = "Use /N=100 on the command line to load the last 100 lines";
    return t;
  }();
  return tips;
}

std::string ShowTip(int16_t& last_tip, RandomSource& random) {
  int tip = RandomBetween(0, kTipCount - 1, random);
  while (tip == last_tip) tip = RandomBetween(0, kTipCount - 1, random);
  last_tip = static_cast<int16_t>(tip);
  return "Tip: " + Tips()[static_cast<size_t>(tip)];
}

}  // namespace ferrow
