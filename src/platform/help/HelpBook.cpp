#include "platform/help/HelpBook.h"

#include <QCollator>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QTextDocument>

#include <algorithm>

namespace {

constexpr int SpacesPerLevel = 2;
// What a title or a keyword adds to the places in the text, for each word and for the query as it stands.
constexpr qsizetype WordWeight = 1000;
constexpr qsizetype PhraseWeight = 100000;

QString ReadText(const QString& name) {
    QFile file(":/help/" + name);
    return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString FirstMatch(const QString& pattern, const QString& html) {
    QTextDocument plain; // turns entities into characters
    plain.setHtml(QRegularExpression(pattern, QRegularExpression::DotMatchesEverythingOption).match(html).captured(1));
    return plain.toPlainText().simplified();
}

HelpBook::Topic ReadTopic(const QString& id, int level) {
    const QString html = ReadText(id + ".html");
    HelpBook::Topic topic{id, FirstMatch("<title>(.*?)</title>", html), {}, level};
    for (const QString& keyword :
         FirstMatch("<meta name=\"keywords\" content=\"(.*?)\">", html).split(';', Qt::SkipEmptyParts))
        topic.keywords << keyword.trimmed();
    return topic;
}

} // namespace

HelpBook::HelpBook() {
    for (const QString& line : ReadText("contents.txt").split('\n')) {
        const QString id = line.trimmed();
        if (!id.isEmpty() && !id.startsWith('#'))
            topics_.push_back(ReadTopic(id, static_cast<int>(line.indexOf(id)) / SpacesPerLevel));
    }
}

std::vector<HelpBook::IndexEntry> HelpBook::Index() const {
    QHash<QString, int> uses;
    for (const Topic& topic : topics_)
        for (const QString& keyword : topic.keywords)
            ++uses[keyword.toLower()];
    std::vector<IndexEntry> entries;
    for (const Topic& topic : topics_)
        for (const QString& keyword : topic.keywords)
            entries.push_back({uses[keyword.toLower()] > 1 ? keyword + " (" + topic.title + ")" : keyword, topic.id});
    QCollator order;
    order.setCaseSensitivity(Qt::CaseInsensitive);
    order.setNumericMode(true);
    std::ranges::sort(entries, [&order](const IndexEntry& a, const IndexEntry& b) { return order(a.text, b.text); });
    return entries;
}

std::vector<HelpBook::Topic> HelpBook::Search(const QString& query) const {
    const QStringList words = Words(query);
    if (words.isEmpty())
        return {};
    std::vector<std::pair<qsizetype, const Topic*>> hits;
    for (std::size_t i = 0; i < topics_.size(); ++i) {
        const QString& text = Texts()[static_cast<qsizetype>(i)];
        const QString head = topics_[i].title + ' ' + topics_[i].keywords.join(' ');
        const QString phrase = words.join(' ');
        qsizetype weight = head.contains(phrase, Qt::CaseInsensitive) ? PhraseWeight : 0;
        const bool all = std::ranges::all_of(words, [&](const QString& word) {
            const qsizetype inText = text.count(word, Qt::CaseInsensitive);
            const bool inHead = head.contains(word, Qt::CaseInsensitive);
            weight += inText + (inHead ? WordWeight : 0);
            return inText > 0 || inHead;
        });
        if (all)
            hits.emplace_back(weight, &topics_[i]);
    }
    std::ranges::stable_sort(hits, std::ranges::greater{}, [](const auto& hit) { return hit.first; });
    std::vector<Topic> found;
    found.reserve(hits.size());
    for (const auto& [weight, topic] : hits)
        found.push_back(*topic);
    return found;
}

bool HelpBook::Contains(const QString& id) const {
    return std::ranges::find(topics_, id, &Topic::id) != topics_.end();
}

QUrl HelpBook::UrlOf(const QString& id) {
    QUrl url("qrc:/help/" + id.section('#', 0, 0) + ".html");
    if (id.contains('#'))
        url.setFragment(id.section('#', 1));
    return url;
}

QString HelpBook::IdOf(const QUrl& url) {
    const QString name = url.fileName();
    return name.endsWith(".html") ? name.chopped(5) : QString();
}

QStringList HelpBook::Words(const QString& query) {
    return query.simplified().split(' ', Qt::SkipEmptyParts);
}

const QStringList& HelpBook::Texts() const {
    if (texts_.isEmpty())
        for (const Topic& topic : topics_) {
            QTextDocument document;
            document.setHtml(ReadText(topic.id + ".html"));
            texts_ << document.toPlainText();
        }
    return texts_;
}
