#pragma once

#include "Tessarine/layout/View.h"

#include <cstdint>
#include <memory>

namespace tessarine {

class TextView;

// Shows where dragged text would go.
class DropCaret {
public:
    // Borrows it.
    explicit DropCaret(TextView& textView);
    ~DropCaret();

    void show(std::int64_t location);
    void hide();

private:
    TextView& m_textView;
    const std::shared_ptr<View> m_view = std::make_shared<View>();
};

} // namespace tessarine
