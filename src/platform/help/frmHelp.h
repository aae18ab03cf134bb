// The help window: contents, index and search beside the topic.
#pragma once

#include "platform/help/HelpBook.h"

#include <QWidget>

#include <memory>

class QListWidgetItem;
class QTreeWidgetItem;

namespace Ui {
class frmHelp;
}

class frmHelp : public QWidget {
    Q_OBJECT

public:
    explicit frmHelp(QWidget* parent = nullptr);
    ~frmHelp() override;

    void ShowContents();
    void ShowIndex();
    // The topic's name, optionally with "#" and a place in it. A topic that is not there shows the first instead.
    void ShowTopic(const QString& topic);

private:
    void ConnectControls();
    void AddShortcuts();
    void FillContents();
    void FillIndex();

    void Open(const QString& topic);
    void txtTopic_SourceChanged(const QUrl& url);
    void txtIndexFilter_Change();
    void OpenFirstIndexEntry();
    void txtSearch_Change();
    void OpenHit(const QListWidgetItem* item);
    void FindInPage(bool backward);

    std::unique_ptr<Ui::frmHelp> ui_;
    HelpBook book_;
};
