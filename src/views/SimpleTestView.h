// The page that tests a scanner or a scale with one button.
#pragma once

#include "views/DeviceNameLists.h"

#include <QFrame>

#include <memory>

namespace Ui {
class SimpleTestView;
}

class SimpleTestView : public QFrame {
    Q_OBJECT

public:
    explicit SimpleTestView(QWidget* parent = nullptr);
    ~SimpleTestView() override;

    [[nodiscard]] DeviceNameList NameLists() const;
    // Selects the first profile of each list that has any.
    void SelectFirstNames();

private:
    std::unique_ptr<Ui::SimpleTestView> ui_;
};
