#pragma once

namespace qor {

/// What is drawn of one marker: a triangle at its point and its label, in pixels of the plot's window.
struct MarkerMark {
    int marker = 0;       ///< 0 to 2; the label reads "M1" to "M3"
    bool onPoint = false; ///< the triangle is drawn, its apex 2 pixels from the point
    int x = 0;            ///< the point
    int y = 0;
    bool down = false; ///< of the down curve: the triangle stands below the point, the text takes that colour
    int labelX = 0;
    int labelY = 0;
};

} // namespace qor
