#pragma once

#include "Halcyonix/DevicePopoverConfig.h"
#include "platform/screens/controllers/ViewController.h"

class QLabel;

namespace halcyonix {

class BlurView;
class PictureView;

// A card that floats over the blurred window and shows one thing: its picture, its name, a line about it.
// Presented over the current context; a press beside the card dismisses it. Main thread.
class DevicePopoverViewController : public platform::ViewController {
    Q_OBJECT

public:
    explicit DevicePopoverViewController(DevicePopoverConfig config);

    const DevicePopoverConfig& config() const { return m_config; }

    QLabel& titleLabel() { return *m_titleLabel; }

    QLabel& subtitleLabel() { return *m_subtitleLabel; }

    PictureView& imageView() { return *m_imageView; }

    BlurView& blurView() { return *m_blurView; }

    QWidget& floatingView() { return *m_floatingView; }

protected:
    void viewDidLoad() override;
    void viewDidLayoutSubviews() override;

private:
    DevicePopoverConfig m_config;
    BlurView* m_blurView;
    QWidget* m_floatingView;
    PictureView* m_imageView;
    QLabel* m_titleLabel;
    QLabel* m_subtitleLabel;
};

} // namespace halcyonix
