#include "views/SimpleTestView.h"

#include "ui_SimpleTestView.h"

SimpleTestView::SimpleTestView(QWidget* parent) : QFrame(parent), ui_(std::make_unique<Ui::SimpleTestView>()) {
    ui_->setupUi(this);
    setFocusProxy(ui_->lstSimpleDeviceName_0);
}

SimpleTestView::~SimpleTestView() = default;

DeviceNameList SimpleTestView::NameLists() const {
    return {ui_->lstSimpleDeviceName_0, ui_->lstSimpleDeviceName_1};
}

void SimpleTestView::SelectFirstNames() {
    for (DropDownList* list : NameLists())
        if (list->ListCount() > 0)
            list->SetListIndex(0);
}
