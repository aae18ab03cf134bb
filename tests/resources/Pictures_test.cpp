#include "profiles/ModelCatalogue.h"

#include <QDir>
#include <QImage>
#include <QString>

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <vector>

namespace {

constexpr QSize pictureSize{240, 180};
constexpr int densities[] = {1, 2, 3};

QString ResourcePath(const QString& name, int density) {
    return density == 1 ? QString(":/%1.png").arg(name) : QString(":/%1@%2x.png").arg(name).arg(density);
}

// The ids of the pictures of devices, in ascending order.
std::vector<int> PictureIds() {
    std::vector<int> ids;
    for (const QString& file : QDir(":/pictures").entryList({"*.png"}, QDir::Files, QDir::Name))
        if (!file.contains('@'))
            ids.push_back(file.chopped(4).toInt());
    return ids;
}

QImage Load(const QString& path) {
    return QImage(path).convertToFormat(QImage::Format_ARGB32);
}

QImage LoadPicture(int id, int density) {
    return Load(ResourcePath(QString("pictures/%1").arg(id), density));
}

// The share of pixels, 0 to 1, that cover the window behind them.
double OpaqueShare(const QImage& image) {
    int opaque = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            opaque += qAlpha(image.pixel(x, y)) > 240;
    return static_cast<double>(opaque) / (image.width() * image.height());
}

// The share of pixels, 0 to 1, whose colour or cover differs so much that an eye sees it.
double DifferentShare(const QImage& one, const QImage& other) {
    constexpr int visible = 48;
    int different = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            different += std::abs(qRed(a) - qRed(b)) > visible || std::abs(qGreen(a) - qGreen(b)) > visible ||
                         std::abs(qBlue(a) - qBlue(b)) > visible || std::abs(qAlpha(a) - qAlpha(b)) > visible;
        }
    return static_cast<double>(different) / (one.width() * one.height());
}

// A drawing or a shadow that reaches the border ends there in a straight edge.
bool IsCutOff(const QImage& image) {
    constexpr int invisible = 8;
    const auto visible = [&image](int x, int y) { return qAlpha(image.pixel(x, y)) > invisible; };
    for (int x = 0; x < image.width(); ++x)
        if (visible(x, 0) || visible(x, image.height() - 1))
            return true;
    for (int y = 0; y < image.height(); ++y)
        if (visible(0, y) || visible(image.width() - 1, y))
            return true;
    return false;
}

void ExpectIcon(const QString& name, int size) {
    for (const int density : densities) {
        const QString path = ResourcePath("icons/" + name, density);
        const QImage icon = Load(path);
        EXPECT_EQ(icon.size(), QSize(size, size) * density) << path.toStdString();
        EXPECT_GT(OpaqueShare(icon), 0.1) << path.toStdString();
    }
}

} // namespace

TEST(Pictures, AreThereForEveryModelAndNoOther) {
    std::set<int> wanted = {ScalePictureId};
    for (const CatalogueEntry& model : ModelCatalogue)
        wanted.insert(model.pictureId);
    const std::vector<int> ids = PictureIds();
    EXPECT_EQ(std::set<int>(ids.begin(), ids.end()), wanted);
}

TEST(Pictures, ExistAtEveryDensity) {
    for (const int id : PictureIds())
        for (const int density : densities)
            EXPECT_EQ(LoadPicture(id, density).size(), pictureSize * density) << id << " at " << density;
}

TEST(Pictures, ShowADevice) {
    for (const int id : PictureIds())
        for (const int density : densities)
            EXPECT_GT(OpaqueShare(LoadPicture(id, density)), 0.08) << id << " at " << density;
}

TEST(Pictures, AreTransparentAroundTheDevice) {
    for (const int id : PictureIds()) {
        const QImage picture = LoadPicture(id, 1);
        EXPECT_LT(OpaqueShare(picture), 0.75) << id;
        EXPECT_FALSE(IsCutOff(picture)) << id;
    }
}

TEST(Pictures, AllLookDifferent) {
    const std::vector<int> ids = PictureIds();
    std::vector<QImage> pictures;
    for (const int id : ids)
        pictures.push_back(LoadPicture(id, 1));
    for (std::size_t one = 0; one < pictures.size(); ++one)
        for (std::size_t other = one + 1; other < pictures.size(); ++other)
            EXPECT_GT(DifferentShare(pictures[one], pictures[other]), 0.1) << ids[one] << " and " << ids[other];
}

TEST(Icons, OfTheListBarExistAtEveryDensity) {
    for (const char* name : {"new-profile", "modify-profile", "simple-test", "detailed-test", "device-information"})
        ExpectIcon(name, 32);
}

TEST(Icons, OfTheMenusExistAtEveryDensity) {
    for (const char* name : {"global-configuration", "wizard", "quit", "help-contents", "help-index", "about"})
        ExpectIcon(name, 16);
}

TEST(Icons, OfTheProgramExistInEverySize) {
    for (const int size : {16, 32, 48, 64, 128, 256}) {
        const QImage icon = Load(QString(":/icons/ravlin-%1.png").arg(size));
        EXPECT_EQ(icon.size(), QSize(size, size));
        EXPECT_GT(OpaqueShare(icon), 0.3) << size;
    }
}
