#include "widgets/ValueLabel.h"

#include <QTest>

#include <gtest/gtest.h>

namespace {

ValueLabel& Sized(ValueLabel& label, int lines) {
    label.SetLines(lines);
    label.resize(120, label.sizeHint().height());
    return label;
}

} // namespace

TEST(ValueLabel, ShowsMarkupAndMnemonicsAsTheyStand) {
    ValueLabel label;
    label.setText("<b>&x</b>");
    EXPECT_EQ(label.text(), "<b>&x</b>");
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
}

TEST(ValueLabel, KeepsItsSizeWhateverItShows) {
    ValueLabel label;
    Sized(label, 2);
    const QSize before = label.sizeHint();
    label.setText(QString(5000, 'x'));
    EXPECT_EQ(label.sizeHint(), before);
    EXPECT_EQ(label.minimumSizeHint(), before);
}

TEST(ValueLabel, CutsWhatDoesNotFitItsLines) {
    ValueLabel label;
    label.setText(QString(20, 'w'));
    EXPECT_TRUE(Sized(label, 1).IsCut());
    EXPECT_FALSE(Sized(label, 4).IsCut());
    label.setText("short");
    EXPECT_FALSE(Sized(label, 1).IsCut());
}

TEST(ValueLabel, DrawsAnyByte) {
    ValueLabel label;
    Sized(label, 2);
    QString bytes;
    for (int i = 0; i < 256; ++i)
        bytes += QChar(i);
    label.setText(bytes);
    EXPECT_FALSE(label.grab().isNull());
    EXPECT_EQ(label.text(), bytes);
}
