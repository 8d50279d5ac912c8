#pragma once

#include <QtGui/QImage>
#include <gtest/gtest.h>

namespace tessarine {

// Whether a picture is the one that is kept as `name` in the folder of pictures.
//
// Means over three by three pixels are compared: the smoothing of a letter's edge may be another, but no
// colour, no row and no place by a pixel. With RENEW_PICTURES set in the environment the picture becomes
// the one that is kept. Where they differ both lie in the build's folder, beside each other and with the
// pixels that differ in red.
::testing::AssertionResult isPicture(const QImage& drawn, const QString& name);

// In how many pixels two pictures of one size differ; these are red in `difference`, if there is one.
int differingPixels(const QImage& a, const QImage& b, QImage* difference = nullptr);

} // namespace tessarine
