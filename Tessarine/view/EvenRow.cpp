#include "Tessarine/view/EvenRow.h"

#include <algorithm>
#include <cmath>

namespace tessarine {

namespace {

// Without the line break, which takes no room.
int lengthOfPrintable(const RowText& row) {
    QStringView text = row.text;
    while (text.endsWith(u'\n') || text.endsWith(u'\r'))
        text.chop(1);
    return static_cast<int>(text.size());
}

double advanceOf(const RowText::Run& run) {
    return *run.style->metrics.unitAdvance;
}

// So many whole units start in front of x, and that is how far behind the last of them it is.
struct Place {
    int units = 0;
    double rest = 0;
};

Place placeAt(const RowText& row, double x) {
    const int printable = lengthOfPrintable(row);
    int units = 0;
    for (const RowText::Run& run : row.runs) {
        const int length = std::min(run.length, printable - units);
        const double advance = advanceOf(run);
        if (x < length * advance) {
            const int fitting = static_cast<int>(std::floor(x / advance));
            return {.units = units + fitting, .rest = (x - fitting * advance) / advance};
        }
        units += length;
        x -= length * advance;
    }
    return {.units = static_cast<int>(row.text.size())};
}

} // namespace

double evenX(const RowText& row, int position) {
    int rest = std::min(position, lengthOfPrintable(row));
    double x = 0;
    for (const RowText::Run& run : row.runs) {
        x += std::min(rest, run.length) * advanceOf(run);
        rest -= run.length;
        if (rest <= 0) break;
    }
    return x;
}

int evenFittingUnits(const RowText& row, double width) {
    return std::max(placeAt(row, width).units, 1);
}

int evenNearest(const RowText& row, double x) {
    const Place place = placeAt(row, x);
    return place.rest < 0.5 ? place.units : place.units + 1;
}

} // namespace tessarine
