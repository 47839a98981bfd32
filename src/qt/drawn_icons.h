// The button pictures no standard icon of the style fits: the spanner of the
// settings button and the binoculars of the filter button, drawn in the
// palette's text colour so they suit light and dark themes.
#pragma once

#include <QIcon>

namespace ferrow {

QIcon SpannerIcon();
QIcon BinocularsIcon();

}  // namespace ferrow
