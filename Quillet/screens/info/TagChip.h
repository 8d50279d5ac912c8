#pragma once

#include "Quillet/screens/info/Chip.h"

namespace quillet {

// A tag in its colour. It says something and does nothing. Main thread.
class TagChip : public Chip {
    Q_OBJECT

public:
    // Without a border for a colour that there is none of.
    TagChip(const QString& title, std::optional<platform::Asset> border, QWidget* parent = nullptr);

protected:
    Look look() const override;
    int leastWidth() const override;

private:
    std::optional<platform::Asset> m_border;
};

} // namespace quillet
