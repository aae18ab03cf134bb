#include "views/TestSite.h"

#include <QSet>

#include <gtest/gtest.h>

void PageControls::ExpectUniqueMnemonics() const {
    QSet<QChar> taken = {'F', 'D', 'H'};
    for (QWidget* control : page_.findChildren<QWidget*>()) {
        QString text;
        if (const auto* button = qobject_cast<QAbstractButton*>(control))
            text = button->text();
        else if (const auto* label = qobject_cast<QLabel*>(control); label != nullptr && label->buddy() != nullptr)
            text = label->text();
        const auto mark = text.indexOf('&');
        if (mark < 0 || !control->isVisibleTo(&page_))
            continue;
        const QChar key = text.at(mark + 1).toUpper();
        EXPECT_FALSE(taken.contains(key)) << text.toStdString();
        taken.insert(key);
    }
}
