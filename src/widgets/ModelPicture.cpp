#include "widgets/ModelPicture.h"

#include "profiles/ModelCatalogue.h"
#include "widgets/DropDownList.h"

#include <QIcon>
#include <QLabel>
#include <QVariant>

namespace {

constexpr QSize PictureSize(240, 180);
constexpr const char* PictureIdProperty = "pictureId";

} // namespace

void FillModelList(DropDownList& list) {
    for (const CatalogueEntry& entry : ModelCatalogue)
        list.AddItem(QString::fromUtf8(entry.label.data(), static_cast<qsizetype>(entry.label.size())),
                     entry.pictureId);
}

void ShowModelPicture(QLabel& label, int pictureId) {
    const QIcon picture(QStringLiteral(":/pictures/%1.png").arg(pictureId));
    const QPixmap pixmap = picture.pixmap(PictureSize, label.devicePixelRatio());
    label.setPixmap(pixmap);
    label.setProperty(PictureIdProperty, pixmap.isNull() ? 0 : pictureId);
}

int ShownModelPicture(const QLabel& label) {
    return label.property(PictureIdProperty).toInt();
}
