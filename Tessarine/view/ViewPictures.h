#pragma once

#include "Tessarine/base/UserInterfaceStyle.h"
#include "Tessarine/layout/View.h"

#include <QtGui/QPixmap>

#include <list>
#include <unordered_map>

namespace tessarine {

// What views have drawn, so that it can be shown again at another place. The pictures that were shown last
// are kept, 64 MB of them. Main thread.
class ViewPictures {
public:
    // Larger ones would push too many others out: such a view has to be drawn each time.
    static bool canKeep(const View& view, double scale);

    // Drawn where the view says that it has changed, and where its size or the scale have; the scale is that
    // of device pixels to points. Null if the view draws nothing.
    QPixmap pictureOf(View& view, double scale, UserInterfaceStyle style);

    void clear();

private:
    struct Entry {
        const View* view = nullptr; // for its address alone: it may have gone
        QSize pixels = {};
        double scale = 0;
        UserInterfaceStyle style = {};
        QPixmap picture = {};

        bool shows(const Entry& wanted) const {
            return pixels == wanted.pixels && scale == wanted.scale && style == wanted.style;
        }
    };

    using Entries = std::list<Entry>;

    Entry& entryOf(const View& view);
    void makeRoom();

    Entries m_entries; // the last shown one first
    std::unordered_map<const View*, Entries::iterator> m_places;
    qsizetype m_bytes = 0; // of all
};

} // namespace tessarine
