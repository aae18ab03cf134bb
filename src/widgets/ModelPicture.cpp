#include "widgets/ModelPicture.h"

#include "profiles/ModelCatalogue.h"
#include "widgets/DropDownList.h"

#include <QIcon>
#include <QLabel>
#include <QStringList>
#include <QVariant>

namespace {

constexpr QSize PictureSize(240, 180);
constexpr const char* PictureIdProperty = "pictureId";

QString Label(const CatalogueEntry& entry) {
    return QString::fromUtf8(entry.label.data(), static_cast<qsizetype>(entry.label.size()));
}

// For those who do not see it: the models that look like this.
QString Describe(int pictureId) {
    QStringList models;
    for (const CatalogueEntry& entry : ModelCatalogue)
        if (entry.pictureId == pictureId)
            models << Label(entry);
    return models.join(", ");
}

} // namespace

void FillModelList(DropDownList& list) {
    for (const CatalogueEntry& entry : ModelCatalogue)
        list.AddItem(Label(entry), entry.pictureId);
}

void ShowModelPicture(QLabel& label, int pictureId) {
    const QIcon picture(QStringLiteral(":/pictures/%1.png").arg(pictureId));
    const QPixmap pixmap = picture.pixmap(PictureSize, label.devicePixelRatio());
    label.setPixmap(pixmap);
    label.setProperty(PictureIdProperty, pixmap.isNull() ? 0 : pictureId);
    label.setAccessibleDescription(Describe(pictureId));
}

int ShownModelPicture(const QLabel& label) {
    return label.property(PictureIdProperty).toInt();
}
