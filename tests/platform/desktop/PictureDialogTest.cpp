#include "platform/desktop/PictureDialog.h"
#include "platform/desktop/SystemDesktop.h"
#include "tests/common/FormTest.h"
#include "tests/common/NextBox.h"

#include <QAccessible>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QScrollBar>
#include <QTest>
#include <utility>

namespace {

/// A folder with a folder, a wide blue picture, a red one and a text that calls
/// itself a picture.
class PictureDialogTest : public FormTest {
protected:
    PictureDialogTest() {
        QDir().mkpath(folder_ + QStringLiteral("/Family"));
        Save(QStringLiteral("blue.png"), QSize(400, 200), Qt::blue);
        Save(QStringLiteral("red.jpg"), QSize(30, 30), Qt::red);
        QFile text(folder_ + QStringLiteral("/text.png"));
        EXPECT_TRUE(text.open(QIODevice::WriteOnly));
        text.write("no picture");
    }

    void Save(const QString& name, const QSize& size, const QColor& color) const {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(color);
        EXPECT_TRUE(picture.save(folder_ + QLatin1Char('/') + name));
    }

    /// Asks for a picture; says what has been chosen.
    std::optional<QString> Choose(const std::function<void(PictureDialog&)>& act) {
        const NextBox next([&](QWidget& box) {
            auto& dialog = dynamic_cast<PictureDialog&>(box);
            EXPECT_TRUE(QTest::qWaitFor([&] { return Names(dialog).size() == 4; }, Patience));
            act(dialog);
            box.close();
        });
        return desktop_.OpenFile(folder_);
    }

    static QListView& Grid(const PictureDialog& dialog) {
        return Find<QListView>(dialog, QStringLiteral("listView"));
    }
    static QModelIndex Entry(const PictureDialog& dialog, int row) {
        return Grid(dialog).model()->index(row, 0, Grid(dialog).rootIndex());
    }
    static QStringList Names(const PictureDialog& dialog) {
        QStringList names;
        for (int row = 0; row < Grid(dialog).model()->rowCount(Grid(dialog).rootIndex()); ++row)
            names += Entry(dialog, row).data().toString();
        return names;
    }
    /// The colour in the middle of an entry's picture.
    static QColor Thumbnail(const PictureDialog& dialog, int row) {
        const QRect place = Grid(dialog).visualRect(Entry(dialog, row));
        const QImage seen = Grid(dialog).viewport()->grab().toImage();
        const QPointF middle(place.center().x(), place.top() + 40);
        return seen.pixelColor((middle * seen.devicePixelRatio()).toPoint());
    }
    static QPixmap Preview(const PictureDialog& dialog) {
        for (const QLabel* label : dialog.findChildren<QLabel*>())
            if (label->accessibleName() == QStringLiteral("Preview of the picture"))
                return label->pixmap();
        ADD_FAILURE() << "no preview";
        return {};
    }

    const QString folder_ = Path(QStringLiteral("Pictures"));
    SystemDesktop desktop_{{}};
};

TEST_F(PictureDialogTest, PicturesAreSeenInAGridUnderTheirNames) {
    Choose([](const PictureDialog& dialog) {
        EXPECT_EQ(Names(dialog),
                  QStringList({QStringLiteral("Family"), QStringLiteral("blue.png"),
                               QStringLiteral("red.jpg"), QStringLiteral("text.png")}));
        const QListView& grid = Grid(dialog);
        EXPECT_TRUE(grid.isVisible());
        EXPECT_EQ(grid.viewMode(), QListView::IconMode);
        EXPECT_EQ(grid.visualRect(Entry(dialog, 0)).top(), grid.visualRect(Entry(dialog, 2)).top());
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return Thumbnail(dialog, 1) == QColor(Qt::blue); }, Patience));
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return Thumbnail(dialog, 2).red() > 240 && Thumbnail(dialog, 2).green() < 20; },
            Patience))
            << "a small one as it is";
        for (const char* button : {"listModeButton", "detailModeButton", "newFolderButton"})
            EXPECT_FALSE(Find(dialog, QString::fromLatin1(button)).isVisible());
        EXPECT_FALSE(Find(dialog, QStringLiteral("treeView")).isVisible()) << "no sizes, no dates";
    });
}

TEST_F(PictureDialogTest, TheKeyboardStartsInTheGridAndChoosesAPicture) {
    const auto chosen = Choose([](PictureDialog& dialog) {
        QListView& grid = Grid(dialog);
        EXPECT_TRUE(QTest::qWaitFor([&] { return grid.hasFocus(); }, Patience));
        EXPECT_TRUE(Preview(dialog).isNull());
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return grid.currentIndex() == Entry(dialog, 0); }, Patience));
        Press(grid, Qt::Key_Right);
        EXPECT_EQ(grid.currentIndex().data().toString(), QStringLiteral("blue.png"));
        const QPixmap preview = Preview(dialog);
        EXPECT_EQ(preview.deviceIndependentSize(), QSizeF(96, 48));
        EXPECT_EQ(preview.toImage().pixelColor(20, 20), QColor(Qt::blue));
        Press(grid, Qt::Key_Return);
    });
    EXPECT_EQ(chosen, folder_ + QStringLiteral("/blue.png"));
}

TEST_F(PictureDialogTest, ScreenReadersHearTheNamesOfPicturesAndBoxes) {
    Choose([](PictureDialog& dialog) {
        QListView& grid = Grid(dialog);
        grid.setCurrentIndex(Entry(dialog, 1));
        QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&grid);
        EXPECT_EQ(list->text(QAccessible::Name), QStringLiteral("Pictures"));
        EXPECT_EQ(list->role(), QAccessible::List);
        EXPECT_EQ(list->focusChild()->text(QAccessible::Name), QStringLiteral("blue.png"));
        ASSERT_EQ(list->childCount(), 4);
        for (int row = 0; row < 4; ++row) {
            QAccessibleInterface* entry = list->child(row);
            EXPECT_EQ(entry, list->child(row)) << "one for each";
            EXPECT_EQ(entry->role(), QAccessible::ListItem);
            EXPECT_EQ(entry->text(QAccessible::Name), Names(dialog).value(row));
            EXPECT_EQ(entry->parent(), list);
            EXPECT_EQ(list->indexOfChild(entry), row);
            const QRect place = grid.visualRect(Entry(dialog, row));
            EXPECT_EQ(entry->rect(),
                      QRect(grid.viewport()->mapToGlobal(place.topLeft()), place.size()));
            EXPECT_EQ(list->childAt(entry->rect().center().x(), entry->rect().center().y()), entry);
            EXPECT_EQ(entry->state().selected, row == 1);
            EXPECT_EQ(entry->state().focused, row == 1);
            EXPECT_FALSE(entry->state().invisible);
        }
        EXPECT_EQ(Find(dialog, QStringLiteral("sidebar")).accessibleName(),
                  QStringLiteral("Places"));
        for (const auto& [label, box] :
             {std::pair("lookInLabel", "lookInCombo"), std::pair("fileTypeLabel", "fileTypeCombo")})
            EXPECT_EQ(Find<QLabel>(dialog, QString::fromLatin1(label)).buddy(),
                      &Find(dialog, QString::fromLatin1(box)));
    });
}

TEST_F(PictureDialogTest, AnotherFolderHasEntriesOfItsOwnForScreenReaders) {
    Choose([this](PictureDialog& dialog) {
        const QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&Grid(dialog));
        const QAccessible::Id former = QAccessible::uniqueId(list->child(0));
        dialog.setDirectory(folder_ + QStringLiteral("/Family"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return list->childCount() == 0; }, Patience));
        EXPECT_EQ(list->child(0), nullptr);
        dialog.setDirectory(folder_ + QStringLiteral("/.."));
        EXPECT_TRUE(QTest::qWaitFor([&] { return list->childCount() > 0; }, Patience));
        EXPECT_EQ(list->child(0)->text(QAccessible::Name), Names(dialog).value(0));
        EXPECT_NE(QAccessible::uniqueId(list->child(0)), former);
        dialog.setDirectory(folder_);
    });
}

TEST_F(PictureDialogTest, WhatIsNoPictureHasNeitherThumbnailNorPreview) {
    Choose([](PictureDialog& dialog) {
        Grid(dialog).setCurrentIndex(Entry(dialog, 1));
        EXPECT_FALSE(Preview(dialog).isNull());
        Grid(dialog).setCurrentIndex(Entry(dialog, 3));
        EXPECT_TRUE(Preview(dialog).isNull());
    });
}

TEST_F(PictureDialogTest, OtherFoldersAreGoneTo) {
    Choose([this](PictureDialog& dialog) {
        Grid(dialog).setCurrentIndex(Entry(dialog, 0));
        Press(Grid(dialog), Qt::Key_Return);
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return dialog.directory().path() == folder_ + QStringLiteral("/Family"); },
            Patience));
        dialog.setDirectory(folder_);
    });
}

TEST_F(PictureDialogTest, AFolderOfPicturesIsAmongThePlacesWhereNoneIsAskedFor) {
    const QString folder = Path(QStringLiteral("Backgrounds"));
    SystemDesktop desktop({}, folder);
    const QUrl place = QUrl::fromLocalFile(folder);
    const auto places = [&](const QString& initialFolder) {
        QList<QUrl> seen;
        const NextBox next([&](QWidget& box) {
            auto& dialog = dynamic_cast<QFileDialog&>(box);
            seen = dialog.sidebarUrls();
            if (initialFolder.isEmpty()) {
                auto& list = Find<QListView>(dialog, QStringLiteral("sidebar"));
                const int last = list.model()->rowCount() - 1;
                EXPECT_EQ(list.model()->index(last, 0).data().toString(),
                          QStringLiteral("Backgrounds"));
                EXPECT_EQ(list.horizontalScrollBar()->maximum(), 0) << "its name is whole";
                ClickRow(list, last);
                EXPECT_TRUE(
                    QTest::qWaitFor([&] { return dialog.directory().path() == folder; }, Patience));
            }
            box.close();
        });
        EXPECT_EQ(desktop.OpenFile(initialFolder), std::nullopt);
        return seen;
    };
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(places(QString()).count(place), 1) << "and once only";
        EXPECT_EQ(places(folder_).count(place), 0);
    }
}

TEST_F(PictureDialogTest, AFolderThatIsNotThereIsNoPlace) {
    SystemDesktop desktop({}, folder_ + QStringLiteral("/Gone"));
    const NextBox next([](QWidget& box) {
        for (const QUrl& place : dynamic_cast<QFileDialog&>(box).sidebarUrls())
            EXPECT_FALSE(place.path().endsWith(QStringLiteral("/Gone")));
        box.close();
    });
    EXPECT_EQ(desktop.OpenFile(QString()), std::nullopt);
}

} // namespace
