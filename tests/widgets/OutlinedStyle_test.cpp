#include "widgets/OutlinedStyle.h"

#include <QApplication>
#include <QFrame>
#include <QImage>
#include <QStyleFactory>

#include <gtest/gtest.h>

namespace {

// On its own, on a screen of the density.
QImage Picture(QWidget& control, double density) {
    QImage picture((QSizeF(control.size()) * density).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(density);
    control.render(&picture);
    return picture;
}

} // namespace

TEST(OutlinedStyle, TakesThePlaceOfFusion) {
    QApplication::setStyle(QStyleFactory::create("fusion"));
    OutlineFusion();
    EXPECT_NE(dynamic_cast<const OutlinedStyle*>(QApplication::style()), nullptr);
}

TEST(OutlinedStyle, LeavesAnyOtherStyleAlone) {
    QApplication::setStyle(QStyleFactory::create("windows"));
    OutlineFusion();
    EXPECT_EQ(QApplication::style()->name(), "windows");
    QApplication::setStyle(QStyleFactory::create("fusion"));
}

TEST(OutlinedStyle, DrawsAllFourSidesOfAFrameAtAnyDensity) {
    OutlinedStyle style;
    QFrame frame;
    frame.setStyle(&style);
    frame.setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    frame.resize(100, 40);
    for (const double density : {1.0, 1.25, 1.5, 1.75, 2.0}) {
        const QImage picture = Picture(frame, density);
        const QRect area = picture.rect();
        const QRgb inside = picture.pixel(area.center());
        EXPECT_NE(picture.pixel(area.left(), area.center().y()), inside) << "left at " << density;
        EXPECT_NE(picture.pixel(area.right(), area.center().y()), inside) << "right at " << density;
        EXPECT_NE(picture.pixel(area.center().x(), area.top()), inside) << "top at " << density;
        EXPECT_NE(picture.pixel(area.center().x(), area.bottom()), inside) << "bottom at " << density;
    }
}
