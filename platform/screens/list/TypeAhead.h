#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QString>

namespace platform {

// What is typed to find a row. Begins anew after a pause as long as the platform says.
class TypeAhead {
public:
    // The text to look for, and whether the search may stay on the row it is on: with one letter, or the same
    // one again and again, it goes on to the next row.
    struct Search {
        QString text;
        bool staysOnRow = false;
    };

    Search type(const QString& text);

    // Whether what is typed now goes on from what was typed before.
    bool isUnderWay() const;

private:
    QString m_typed;
    QElapsedTimer m_sinceLast;
};

} // namespace platform
