// The program's name, version and the texts that go with them, in one place.
#pragma once

namespace ferrow {

inline constexpr char kProductName[] = "Ferrow";
inline constexpr char kVersion[] = "1.46";
inline constexpr char kReleaseDate[] = "30th June 2012";
// Begins with " - " and ends with a blank: it stands between the version and the date.
inline constexpr char kCopyright[] = " - Copyright (c) the Ferrow developers, released ";
inline constexpr char kWebsite[] = "https://ferrow.example.org/";

}  // namespace ferrow
