#include "platform/help/frmHelp.h"

#include "ui_frmHelp.h"

#include <QShortcut>

#include <vector>

namespace {

constexpr int TopicRole = Qt::UserRole;

// The first item that is shown; null for none.
QListWidgetItem* FirstShown(const QListWidget& list) {
    for (int i = 0; i < list.count(); ++i)
        if (!list.item(i)->isHidden())
            return list.item(i);
    return nullptr;
}

} // namespace

frmHelp::frmHelp(QWidget* parent) : QWidget(parent, Qt::Window), ui_(std::make_unique<Ui::frmHelp>()) {
    ui_->setupUi(this);
    setAttribute(Qt::WA_QuitOnClose, false); // the program ends with its main window
    ui_->splHelp->setStretchFactor(1, 1);
    ui_->splHelp->setSizes({270, 610});
    ui_->lblFound->hide();
    FillContents();
    FillIndex();
    ConnectControls();
    AddShortcuts();
    Open(book_.Topics().front().id);
}

frmHelp::~frmHelp() = default;

void frmHelp::ConnectControls() {
    connect(ui_->cmdBack, &QPushButton::clicked, ui_->txtTopic, &QTextBrowser::backward);
    connect(ui_->cmdForward, &QPushButton::clicked, ui_->txtTopic, &QTextBrowser::forward);
    connect(ui_->cmdHome, &QPushButton::clicked, this, [this] { Open(book_.Topics().front().id); });
    connect(ui_->txtTopic, &QTextBrowser::backwardAvailable, ui_->cmdBack, &QWidget::setEnabled);
    connect(ui_->txtTopic, &QTextBrowser::forwardAvailable, ui_->cmdForward, &QWidget::setEnabled);
    connect(ui_->txtTopic, &QTextBrowser::sourceChanged, this, &frmHelp::txtTopic_SourceChanged);

    connect(ui_->treContents, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
        if (item != nullptr)
            Open(item->data(0, TopicRole).toString());
    });
    connect(ui_->txtIndexFilter, &QLineEdit::textChanged, this, &frmHelp::txtIndexFilter_Change);
    connect(ui_->txtIndexFilter, &QLineEdit::returnPressed, this, &frmHelp::OpenFirstIndexEntry);
    for (QListWidget* list : {ui_->lstIndex, ui_->lstHits}) {
        connect(list, &QListWidget::itemActivated, this, &frmHelp::OpenHit);
        connect(list, &QListWidget::itemClicked, this, &frmHelp::OpenHit);
    }
    connect(ui_->txtSearch, &QLineEdit::textChanged, this, &frmHelp::txtSearch_Change);
    connect(ui_->txtSearch, &QLineEdit::returnPressed, this, [this] { OpenHit(FirstShown(*ui_->lstHits)); });
    connect(ui_->txtFind, &QLineEdit::returnPressed, this, [this] { FindInPage(false); });
    connect(ui_->txtFind, &QLineEdit::textChanged, ui_->lblFound, &QWidget::hide);
    connect(ui_->cmdFindNext, &QPushButton::clicked, this, [this] { FindInPage(false); });
    connect(ui_->cmdFindPrevious, &QPushButton::clicked, this, [this] { FindInPage(true); });
}

void frmHelp::AddShortcuts() {
    const auto press = [this](const QKeySequence& keys, QPushButton* button) {
        connect(new QShortcut(keys, this), &QShortcut::activated, button, &QPushButton::click);
    };
    press(QKeySequence::Back, ui_->cmdBack);
    press(QKeySequence::Forward, ui_->cmdForward);
    press(QKeySequence("Alt+Home"), ui_->cmdHome);
    press(QKeySequence("F3"), ui_->cmdFindNext);
    press(QKeySequence("Shift+F3"), ui_->cmdFindPrevious);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        ui_->txtFind->setFocus();
        ui_->txtFind->selectAll();
    });
    connect(new QShortcut(QKeySequence("Esc"), this), &QShortcut::activated, this, &QWidget::close);
}

void frmHelp::FillContents() {
    std::vector<QTreeWidgetItem*> path = {ui_->treContents->invisibleRootItem()};
    for (const HelpBook::Topic& topic : book_.Topics()) {
        path.resize(std::min(path.size(), static_cast<std::size_t>(topic.level) + 1));
        auto* item = new QTreeWidgetItem(path.back(), {topic.title});
        item->setData(0, TopicRole, topic.id);
        path.push_back(item);
    }
    ui_->treContents->expandAll();
}

void frmHelp::FillIndex() {
    for (const HelpBook::IndexEntry& entry : book_.Index())
        (new QListWidgetItem(entry.text, ui_->lstIndex))->setData(TopicRole, entry.id);
}

void frmHelp::ShowContents() {
    ui_->tabHelp->setCurrentWidget(ui_->pagContents);
    ui_->treContents->setFocus();
}

void frmHelp::ShowIndex() {
    ui_->tabHelp->setCurrentWidget(ui_->pagIndex);
    ui_->txtIndexFilter->setFocus();
    ui_->txtIndexFilter->selectAll();
}

void frmHelp::ShowTopic(const QString& topic) {
    ui_->txtTopic->Highlight({});
    Open(book_.Contains(topic.section('#', 0, 0)) ? topic : book_.Topics().front().id);
    ui_->txtTopic->setFocus();
}

void frmHelp::Open(const QString& topic) {
    const QUrl url = HelpBook::UrlOf(topic);
    if (ui_->txtTopic->source() != url)
        ui_->txtTopic->setSource(url);
}

void frmHelp::txtTopic_SourceChanged(const QUrl& url) {
    const QString id = HelpBook::IdOf(url);
    for (QTreeWidgetItemIterator item(ui_->treContents); *item != nullptr; ++item)
        if ((*item)->data(0, TopicRole).toString() == id) {
            const QSignalBlocker quiet(ui_->treContents); // the topic is shown already
            ui_->treContents->setCurrentItem(*item);
            setWindowTitle((*item)->text(0) + " - Ravlin Help");
        }
    ui_->lblFound->hide();
}

void frmHelp::txtIndexFilter_Change() {
    const QString filter = ui_->txtIndexFilter->text().simplified();
    for (int i = 0; i < ui_->lstIndex->count(); ++i) {
        QListWidgetItem* item = ui_->lstIndex->item(i);
        item->setHidden(!item->text().contains(filter, Qt::CaseInsensitive));
    }
    ui_->lstIndex->setCurrentItem(FirstShown(*ui_->lstIndex));
}

void frmHelp::OpenFirstIndexEntry() {
    OpenHit(FirstShown(*ui_->lstIndex));
}

void frmHelp::txtSearch_Change() {
    ui_->lstHits->clear();
    const QString query = ui_->txtSearch->text();
    for (const HelpBook::Topic& topic : book_.Search(query))
        (new QListWidgetItem(topic.title, ui_->lstHits))->setData(TopicRole, topic.id);
    const int count = ui_->lstHits->count();
    ui_->lstHits->setCurrentRow(count > 0 ? 0 : -1);
    if (HelpBook::Words(query).isEmpty())
        ui_->lblHits->setText("Type the words to look for.");
    else if (count == 0)
        ui_->lblHits->setText("No topic holds all these words.");
    else
        ui_->lblHits->setText(count == 1 ? QStringLiteral("1 topic") : QStringLiteral("%1 topics").arg(count));
}

void frmHelp::OpenHit(const QListWidgetItem* item) {
    if (item == nullptr)
        return;
    const bool searched = item->listWidget() == ui_->lstHits;
    Open(item->data(TopicRole).toString());
    ui_->txtTopic->Highlight(searched ? HelpBook::Words(ui_->txtSearch->text()) : QStringList());
}

void frmHelp::FindInPage(bool backward) {
    const QString text = ui_->txtFind->text();
    if (text.isEmpty()) {
        ui_->txtFind->setFocus();
        return;
    }
    const bool found = ui_->txtTopic->FindInPage(text, backward ? QTextDocument::FindFlags(QTextDocument::FindBackward)
                                                                : QTextDocument::FindFlags());
    ui_->lblFound->setVisible(!found);
}
