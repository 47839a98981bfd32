// What the user is told about a file name that the ANSI code page cannot
// hold (a drop or a pick of a name with characters outside it): the name is
// not used at all, since the code page's nearest form could be another file.
#pragma once

#include <string>

namespace ferrow {
class Ui;
}

namespace ferrow::win32 {

std::string UnusableNameMessage(const std::wstring& name);
void ShowUnusableName(Ui& ui, const std::wstring& name);

}  // namespace ferrow::win32
