// The topics of the help as a book: their order, titles, keywords and texts, read from the embedded files once.
#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

#include <vector>

class HelpBook {
public:
    struct Topic {
        QString id; // the file's name without ".html"
        QString title;
        QStringList keywords;
        int level = 0; // depth in the contents, 0 at the top
    };
    struct IndexEntry {
        QString text;
        QString id;
    };

    HelpBook();

    // In the order of the contents; a topic stands behind the one it belongs to, a level deeper.
    [[nodiscard]] const std::vector<Topic>& Topics() const { return topics_; }
    // Keywords and the topics they lead to, in alphabetical order. A keyword of several topics names the topic too.
    [[nodiscard]] std::vector<IndexEntry> Index() const;
    // The topics whose title or text holds every word of the query, without regard to case, best first. Empty for a
    // query without words.
    [[nodiscard]] std::vector<Topic> Search(const QString& query) const;

    [[nodiscard]] bool Contains(const QString& id) const;
    [[nodiscard]] static QUrl UrlOf(const QString& id);
    // The topic that a URL shows; empty for a URL of something else.
    [[nodiscard]] static QString IdOf(const QUrl& url);
    // The words of a query.
    [[nodiscard]] static QStringList Words(const QString& query);

private:
    [[nodiscard]] const QStringList& Texts() const;

    std::vector<Topic> topics_;
    mutable QStringList texts_; // plain text by topic, read at the first search
};
