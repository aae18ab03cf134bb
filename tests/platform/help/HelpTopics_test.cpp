// The topics themselves: nothing dangles, nothing is out of reach.
#include "platform/help/HelpBook.h"
#include "profiles/ModelCatalogue.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

namespace {

QString Read(const QString& path) {
    QFile file(path);
    return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString Html(const QString& id) {
    return Read(":/help/" + id + ".html");
}

QStringList TopicFiles() {
    QStringList ids;
    for (const QString& file : QDir(":/help").entryList({"*.html"}))
        ids << file.chopped(5);
    return ids;
}

QStringList AllMatches(const QString& text, const QString& pattern) {
    QStringList found;
    for (const auto& match : QRegularExpression(pattern).globalMatch(text))
        found << match.captured(1);
    return found;
}

bool HasPlace(const QString& id, const QString& place) {
    return place.isEmpty() || Html(id).contains("<a name=\"" + place + "\">");
}

} // namespace

TEST(HelpTopics, EachStandsOnceInTheContents) {
    QStringList listed;
    const HelpBook book;
    for (const HelpBook::Topic& topic : book.Topics())
        listed << topic.id;
    QStringList files = TopicFiles();
    ASSERT_GT(files.size(), 25);
    listed.sort();
    files.sort();
    EXPECT_EQ(listed.join(' ').toStdString(), files.join(' ').toStdString());
}

TEST(HelpTopics, EachHasATitleKeywordsAndTheSharedStyle) {
    const HelpBook book;
    for (const HelpBook::Topic& topic : book.Topics()) {
        EXPECT_FALSE(topic.title.isEmpty()) << topic.id.toStdString();
        EXPECT_FALSE(topic.keywords.isEmpty()) << topic.id.toStdString();
        EXPECT_TRUE(Html(topic.id).contains("href=\"help.css\"")) << topic.id.toStdString();
        EXPECT_TRUE(Html(topic.id).contains("charset=utf-8")) << topic.id.toStdString();
    }
}

TEST(HelpTopics, TitlesDiffer) {
    QSet<QString> titles;
    const HelpBook book;
    for (const HelpBook::Topic& topic : book.Topics()) {
        EXPECT_FALSE(titles.contains(topic.title)) << topic.title.toStdString();
        titles << topic.title;
    }
}

TEST(HelpTopics, EveryLinkLeadsToAPlaceInTheHelp) {
    for (const QString& id : TopicFiles())
        for (const QString& link : AllMatches(Html(id), "<a href=\"([^\"]*)\"")) {
            const QString file = link.section('#', 0, 0);
            const QString target = file.isEmpty() ? id : file.chopped(5);
            EXPECT_TRUE((file.isEmpty() || file.endsWith(".html")) && !Html(target).isEmpty())
                << id.toStdString() << " links to " << link.toStdString();
            EXPECT_TRUE(HasPlace(target, link.section('#', 1)))
                << id.toStdString() << " links to " << link.toStdString();
        }
}

TEST(HelpTopics, NothingLeadsOutOfTheHelp) {
    for (const QString& id : TopicFiles())
        EXPECT_FALSE(Html(id).remove("http://www.w3.org").contains("://")) << id.toStdString();
}

TEST(HelpTopics, EveryImageIsThereAndSaysWhatItShows) {
    int images = 0;
    for (const QString& id : TopicFiles())
        for (const QString& image : AllMatches(Html(id), "<img ([^>]*)>")) {
            ++images;
            EXPECT_TRUE(QFile::exists(":/help/" + AllMatches(image, "src=\"([^\"]*)\"").value(0)))
                << id.toStdString() << ": " << image.toStdString();
            EXPECT_FALSE(AllMatches(image, "alt=\"([^\"]+)\"").isEmpty()) << id.toStdString();
        }
    EXPECT_GT(images, 0);
}

TEST(HelpTopics, EveryTopicThatF1OpensIsThere) {
    const QStringList lines = Read(":/help/topics.txt").split('\n');
    for (const QString& line : lines)
        if (!line.startsWith('#') && line.contains('=')) {
            const QString topic = line.section('=', 1).trimmed();
            EXPECT_FALSE(Html(topic.section('#', 0, 0)).isEmpty()) << line.toStdString();
            EXPECT_TRUE(HasPlace(topic.section('#', 0, 0), topic.section('#', 1))) << line.toStdString();
        }
}

TEST(HelpTopics, EveryResultCodeAndOpenResultIsExplained) {
    for (int code = 101; code <= 114; ++code)
        EXPECT_TRUE(HasPlace("result-codes", 'c' + QString::number(code))) << code;
    EXPECT_TRUE(HasPlace("result-codes", "c0"));
    for (const int code : {0, 300, 301, 302, 303, 304, 305, 306, 307, 400, 401, 402, 403, 450})
        EXPECT_TRUE(HasPlace("open-results", 'c' + QString::number(code))) << code;
}

TEST(HelpTopics, OfTheModelsNamesEachOfThem) {
    const QString models = Html("models");
    for (const CatalogueEntry& model : ModelCatalogue)
        EXPECT_TRUE(models.contains(QString::fromStdString(std::string(model.label)).toHtmlEscaped())) << model.label;
}
