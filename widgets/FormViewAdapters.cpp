#include "widgets/FormViewAdapters.h"

#include <QPixmap>
#include <QTextDocument>

namespace {
const char PictureProperty[] = "picture";
}

QImage LabelPicture::Picture() const {
    return label_.property(PictureProperty).value<QImage>();
}

void LabelPicture::SetPicture(const QImage& picture) {
    label_.setProperty(PictureProperty, picture);
    if (picture.isNull()) {
        label_.setPixmap(QPixmap());
        return;
    }
    const qreal ratio = label_.devicePixelRatioF();
    QImage scaled = picture.scaled(label_.contentsRect().size() * ratio, Qt::KeepAspectRatio,
                                   Qt::SmoothTransformation);
    scaled.setDevicePixelRatio(ratio);
    label_.setPixmap(QPixmap::fromImage(scaled));
}

QListWidgetItem* AddNamed(QListWidget& list, const QString& name) {
    auto* entry = new QListWidgetItem(name, &list);
    entry->setToolTip(Qt::convertFromPlainText(name));
    return entry;
}

QString SelectedEntry(const QListWidget& list) {
    QString entry;
    for (int row = 0; row < list.count(); ++row)
        if (list.item(row)->isSelected())
            entry = list.item(row)->text();
    return entry;
}
