#pragma once
// A printed page as the layout modules compute it: texts and rules at whole-number positions in
// the page's own unit, with no painter, font or device behind them. PrintPainter.h draws one on a
// printer, a preview or a PDF file.

#include <QString>
#include <vector>

namespace quillon {

// A font as the drive's paperwork was laid out: height and average character width in page
// units. Width 0: the face's own width at that height.
struct PrintFont {
    const char* family;
    int height;
    int width;
    int weight;  // 400 normal, 700 bold
};

struct PrintText {
    PrintFont font;
    int x;  // left edge, or the centre with `centred`
    int y;  // top of the text
    QString text;
    bool centred = false;
};

struct PrintRule {
    int x1, y1, x2, y2;
};

struct PrintPage {
    double unitMm = 0.1;  // length of one unit on paper
    bool yUp = true;      // y rises upwards from the top edge (every y negative), else downwards
    std::vector<PrintText> texts;
    std::vector<PrintRule> rules;
};

// Width and height of the printable area in the page's unit.
struct PageSize {
    int width = 0;
    int height = 0;
};

}  // namespace quillon
