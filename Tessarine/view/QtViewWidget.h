#pragma once

#include "Tessarine/view/ViewPictures.h"

#include <QtWidgets/QWidget>

#include <memory>

namespace tessarine {

class QtViewHost;

// Shows a tree of views, the root over all of it. Of a change only the part that it touches is painted, and
// only views that say that they have changed draw: so to scroll is to move pictures.
class QtViewWidget : public QWidget {
    Q_OBJECT

public:
    explicit QtViewWidget(QWidget* parent = nullptr);
    ~QtViewWidget() override;

    // May be null.
    void setRootView(std::shared_ptr<View> root);

    // For which colours are resolved; light at first.
    void setUserInterfaceStyle(UserInterfaceStyle style);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    // Gives all views their places before they are painted.
    virtual void layoutViews(View& root);

private:
    void fitRootView();
    void updateOpacity(QPainter& painter, const QRegion& region);

    const std::shared_ptr<QtViewHost> m_host;
    std::shared_ptr<View> m_root;
    ViewPictures m_pictures;
    UserInterfaceStyle m_style = UserInterfaceStyle::Light;
};

} // namespace tessarine
