#pragma once

#include "Tessarine/view/QtViewWidget.h"

#include <memory>

namespace tessarine {

class TextView;

// Shows what a text view lays out.
class TextViewport final : public QtViewWidget {
    Q_OBJECT

public:
    explicit TextViewport(std::shared_ptr<TextView> textView);

protected:
    void layoutViews(View& root) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    const std::shared_ptr<TextView> m_textView;
};

} // namespace tessarine
