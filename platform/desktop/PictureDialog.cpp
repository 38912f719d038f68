#include "platform/desktop/PictureDialog.h"

#include "platform/forms/PicturesInSight.h"
#include "platform/forms/WidgetRole.h"
#include "platform/runtime/SmallPictures.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileSystemModel>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QSplitter>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace {

constexpr int ThumbnailSide = 72; // pixels
constexpr int PreviewSide = 96;

/// The picture in a file, within a square of so many logical pixels; null if it holds none.
QPixmap PictureIn(const QString& path, int side, qreal scale) {
    QFile file(path);
    // A pipe would be waited for.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    const int pixels = qRound(side * scale);
    QImage picture = ReadSmallPicture(file, pixels);
    if (picture.width() > pixels || picture.height() > pixels)
        picture = picture.scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QPixmap pixmap = QPixmap::fromImage(picture);
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

/// Puts a file's picture in the place of the icon of its kind.
class Thumbnails : public QStyledItemDelegate {
public:
    explicit Thumbnails(QListView& list)
        : QStyledItemDelegate(&list),
          pictures_(new PicturesInSight(
              list, QFileSystemModel::FilePathRole, [&list](const QString& path) {
                  return PictureIn(path, ThumbnailSide, list.devicePixelRatioF());
              })) {}

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        const QPixmap picture = pictures_->Of(index);
        if (picture.isNull())
            return;
        // What it is called, not of what kind it is; the box below the grid tells all.
        option->text = QFileInfo(option->text).completeBaseName();
        // The same for a chosen file: a style would tint its picture otherwise.
        option->icon = QIcon();
        for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected})
            option->icon.addPixmap(picture, mode);
    }

private:
    PicturesInSight* pictures_;
};

} // namespace

PictureDialog::PictureDialog(QWidget* parent, const QString& folder, const QString& place)
    : QFileDialog(parent, QStringLiteral("Open"), folder,
                  folder.isEmpty()
                      ? QString()
                      : QStringLiteral("Pictures (*.png *.jpg *.jpeg *.gif *.bmp *.ico)")) {
    // Who only chooses a picture, before the log-in even, is to delete and rename nothing: the
    // dialogs of some desktops offer it, and know no way to forbid it.
    setOptions(QFileDialog::ReadOnly | QFileDialog::DontUseNativeDialog);
    setFileMode(QFileDialog::ExistingFile);
    // What one was left in elsewhere is not what is wanted here.
    setViewMode(QFileDialog::List);
    for (const char* button : {"listModeButton", "detailModeButton", "newFolderButton"})
        if (auto* other = findChild<QWidget*>(QLatin1String(button)))
            other->hide();
    constexpr int boxHeight = 24;
    for (const char* box : {"lookInCombo", "fileNameEdit", "fileTypeCombo"})
        if (auto* low = findChild<QWidget*>(QLatin1String(box)))
            low->setMinimumHeight(boxHeight);
    if (const auto* buttons = findChild<QDialogButtonBox*>(QStringLiteral("buttonBox")))
        SetRole(*buttons->button(QDialogButtonBox::Open), QStringLiteral("primary"));
    // So that screen readers tell what the boxes are; the toolkit does so for one of them.
    for (const auto& [label, box] :
         {std::pair("lookInLabel", "lookInCombo"), std::pair("fileTypeLabel", "fileTypeCombo")})
        if (auto* ofBox = findChild<QLabel*>(QLatin1String(label)))
            ofBox->setBuddy(findChild<QWidget*>(QLatin1String(box)));
    constexpr QSize symbol(16, 16);
    if (auto* places = findChild<QListView*>(QStringLiteral("sidebar"))) {
        places->setAccessibleName(QStringLiteral("Places"));
        places->setIconSize(symbol);
    }
    if (auto* folders = findChild<QComboBox*>(QStringLiteral("lookInCombo"))) {
        folders->setItemDelegate(new QStyledItemDelegate(folders));
        folders->setIconSize(symbol);
    }
    grid_ = findChild<QListView*>(QStringLiteral("listView"));
    if (grid_ != nullptr)
        ShowAsGrid(*grid_);
    AddPreview();
    if (folder.isEmpty() && QFileInfo(place).isDir()) {
        place_ = QUrl::fromLocalFile(place);
        setSidebarUrls(sidebarUrls() << place_);
    }
    constexpr QSize enough(780, 500);
    resize(enough);
}

PictureDialog::~PictureDialog() {
    // The toolkit keeps the places for its dialogs in all programs.
    QList<QUrl> places = sidebarUrls();
    places.removeAll(place_);
    setSidebarUrls(places);
}

void PictureDialog::showEvent(QShowEvent* event) {
    QFileDialog::showEvent(event);
    if (auto* places = findChild<QListView*>(QStringLiteral("sidebar"))) {
        constexpr int Widest = 200;
        const int wanted = places->sizeHintForColumn(0) + 2 * places->frameWidth();
        places->setMinimumWidth(std::min(wanted, Widest));
    }
    // Not in the box for a name: the arrow keys choose, and letters go to a name as well.
    if (grid_ != nullptr)
        grid_->setFocus();
}

void PictureDialog::ShowAsGrid(QListView& list) {
    list.setAccessibleName(QStringLiteral("Pictures"));
    list.setViewMode(QListView::IconMode);
    list.setMovement(QListView::Static);
    list.setResizeMode(QListView::Adjust);
    list.setIconSize(QSize(ThumbnailSide, ThumbnailSide));
    constexpr int sideRoom = 26;
    constexpr int air = 14;
    list.setGridSize(
        QSize(ThumbnailSide + sideRoom, ThumbnailSide + list.fontMetrics().height() + air));
    list.setTextElideMode(Qt::ElideRight);
    list.setWordWrap(false);
    list.setUniformItemSizes(true);
    list.setItemDelegate(new Thumbnails(list));
    // The keys begin at the first picture, whichever the disk named first.
    connect(list.model(), &QAbstractItemModel::layoutChanged, this, [&list] {
        if (!list.selectionModel()->hasSelection())
            list.selectionModel()->setCurrentIndex(list.model()->index(0, 0, list.rootIndex()),
                                                   QItemSelectionModel::NoUpdate);
    });
}

void PictureDialog::AddPreview() {
    auto* splitter = findChild<QSplitter*>(QStringLiteral("splitter"));
    if (splitter == nullptr)
        return;
    auto* side = new QWidget(splitter);
    auto* column = new QVBoxLayout(side);
    constexpr int margin = 8;
    column->setContentsMargins(margin, 0, 0, 0);
    preview_ = new QLabel(side);
    preview_->setAccessibleName(QStringLiteral("Preview of the picture"));
    preview_->setAlignment(Qt::AlignCenter);
    preview_->setFrameShape(QFrame::StyledPanel);
    preview_->setProperty("role", QStringLiteral("card"));
    constexpr int frame = 6;
    preview_->setFixedSize(PreviewSide + 2 * frame, PreviewSide + 2 * frame);
    column->addWidget(preview_);
    column->addStretch();
    splitter->addWidget(side);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    connect(this, &QFileDialog::currentChanged, this,
            [this](const QString& path) { ShowPreview(path); });
}

void PictureDialog::ShowPreview(const QString& path) {
    const bool isChosen = grid_ != nullptr && grid_->selectionModel()->hasSelection();
    preview_->setPixmap(isChosen ? PictureIn(path, PreviewSide, devicePixelRatioF()) : QPixmap());
}
