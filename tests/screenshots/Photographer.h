// Takes pictures of windows as their users see them.
#pragma once

#include <QDir>
#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

class Photographer {
public:
    // Pictures go to the directory as NAME.png.
    explicit Photographer(const QDir& directory) : directory_(directory) {}

    void Take(QWidget& window, const QString& name) const;
    // Runs work, which opens modal windows one after the other, takes the picture of each, once it is prepared, and
    // closes it.
    void TakeModals(const QStringList& names, const std::function<void()>& work,
                    const std::function<void(QWidget&)>& prepare = {}) const;

private:
    QDir directory_;
};
