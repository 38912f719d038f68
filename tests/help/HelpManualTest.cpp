#include "help/HelpBook.h"
#include "help/HelpPage.h"
#include "help/HelpWindow.h"
#include "tests/common/ActiveWindow.h"
#include "tests/common/Entries.h"
#include "tests/common/FormTest.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QTextDocumentFragment>
#include <algorithm>

namespace {

const QString HelpFolder = QStringLiteral(DUTYGRID_SOURCE_DIR "/install/HelpFile/");
const QString Manual = HelpFolder + QStringLiteral("DutygridHlp.hlp");

QString ReadFile(const QString& name) {
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return QString::fromUtf8(file.readAll());
}

/// What the pattern's first group finds in a text.
QStringList AllOf(const char* pattern, const QString& text) {
    const QRegularExpression expression(QString::fromLatin1(pattern),
                                        QRegularExpression::DotMatchesEverythingOption);
    QStringList found;
    for (auto matches = expression.globalMatch(text); matches.hasNext();)
        found += matches.next().captured(1);
    return found;
}

QString Plain(const QString& html) {
    return QTextDocumentFragment::fromHtml(html).toPlainText().simplified();
}

/// All texts that the program's windows and code hold, without the marks of
/// access keys.
const QSet<QString>& ProgramTexts() {
    static const QSet<QString> texts = [] {
        QSet<QString> all;
        for (const char* room :
             {"accounts", "app", "authoring", "filling", "help", "look", "platform", "print",
              "reports", "restore", "session", "shell", "store", "support", "widgets"}) {
            QDirIterator files(
                QStringLiteral(DUTYGRID_SOURCE_DIR "/") + QString::fromLatin1(room),
                {QStringLiteral("*.ui"), QStringLiteral("*.cpp"), QStringLiteral("*.h")},
                QDir::Files, QDirIterator::Subdirectories);
            while (files.hasNext()) {
                const QString file = files.next();
                const bool window = file.endsWith(QLatin1String(".ui"));
                QString source = ReadFile(file);
                if (!window) // texts of more than one line
                    source.remove(QRegularExpression(QStringLiteral("\"\\s*\\n\\s*\"")));
                for (QString text :
                     AllOf(window ? "<string>(.*?)</string>" : "\"((?:[^\"\\\\\\n]|\\\\.)*)\"",
                           source)) {
                    if (window)
                        text = Plain(text);
                    all += text.remove(QLatin1Char('&')).simplified();
                }
            }
        }
        return all;
    }();
    return texts;
}

class HelpManualTest : public FormTest {
protected:
    const QString source = ReadFile(Manual);
    const HelpBook book{Manual};
};

TEST_F(HelpManualTest, HasAPageForEveryNeed) {
    QStringList pages;
    for (const HelpTopic& topic : book.Topics()) {
        pages += topic.Id;
        EXPECT_FALSE(topic.Title.isEmpty()) << topic.Id.toStdString();
    }
    EXPECT_EQ(pages.join(QLatin1Char(' ')),
              QStringLiteral("welcome start charts weeks points reports printing children "
                             "school options languages data back "
                             "wrong questions menus"));
}

TEST_F(HelpManualTest, EveryLinkLeadsToAPageOrSection) {
    const QStringList links = AllOf("href\\s*=\\s*\"([^\"]*)\"", source);
    EXPECT_GT(links.size(), 10);
    for (const QString& link : links)
        EXPECT_TRUE(link.startsWith(QLatin1Char('#')) && book.PageOf(link.mid(1)) >= 0)
            << link.toStdString();
}

TEST_F(HelpManualTest, EveryPageAndSectionHasAnIdOfItsOwn) {
    const QStringList ids = AllOf("\\bid\\s*=\\s*\"([^\"]*)\"", source);
    EXPECT_EQ(QSet<QString>(ids.begin(), ids.end()).size(), ids.size());
    EXPECT_EQ(AllOf("<(h[12])\\b", source).size(), ids.size());
}

TEST_F(HelpManualTest, EveryPictureIsThereAndEveryPictureThereIsShown) {
    QSet<QString> shown;
    for (const QString& picture : AllOf("<img src=\"([^\"]*)\">", source)) {
        EXPECT_FALSE(QImage(QDir(HelpFolder).filePath(picture)).isNull()) << picture.toStdString();
        shown += picture;
    }
    EXPECT_EQ(AllOf("(<img)", source).size(), AllOf("(<img src=\")", source).size());
    const QStringList pictures =
        QDir(HelpFolder + QStringLiteral("pictures")).entryList(QDir::Files);
    EXPECT_GT(pictures.size(), 10);
    for (const QString& picture : pictures) {
        EXPECT_TRUE(shown.contains(QStringLiteral("pictures/") + picture))
            << picture.toStdString() << " is not in the manual";
        EXPECT_TRUE(QFile::exists(Path(QStringLiteral("HelpFile/pictures/") + picture)))
            << picture.toStdString() << " is not delivered";
    }
}

TEST_F(HelpManualTest, PicturesAreSmallEnoughForThePage) {
    const QDir folder(HelpFolder + QStringLiteral("pictures"));
    for (const QString& picture : folder.entryList(QDir::Files))
        EXPECT_LE(QImage(folder.filePath(picture)).width(), 640) << picture.toStdString();
}

TEST_F(HelpManualTest, ButtonsAndMenusAreCalledWhatTheProgramCallsThem) {
    const QStringList names = AllOf("<b\\s+class=\"ui\">(.*?)</b>", source);
    EXPECT_GT(names.size(), 50);
    EXPECT_EQ(AllOf("(class=\"ui\")", source).size(), names.size());
    for (const QString& name : names)
        EXPECT_TRUE(ProgramTexts().contains(Plain(name))) << Plain(name).toStdString();
}

TEST_F(HelpManualTest, MessagesAreQuotedAsTheProgramSaysThem) {
    const QStringList messages = AllOf("<span class=\"message\">(.*?)</span>", source);
    EXPECT_GT(messages.size(), 10);
    for (const QString& message : messages) {
        const QString text = Plain(message);
        EXPECT_TRUE(std::any_of(ProgramTexts().begin(), ProgramTexts().end(),
                                [&](const QString& known) { return known.startsWith(text); }))
            << text.toStdString();
    }
}

TEST_F(HelpManualTest, TheChildrensPageHasFewWordsAndManyPictures) {
    const HelpTopic& page = EntryOf(book.Topics(), book.PageOf(QStringLiteral("children")));
    EXPECT_LE(page.Text.count(QLatin1Char(' ')), 170);
    EXPECT_GE(AllOf("(<img)", page.Html).size(), 8);
}

TEST_F(HelpManualTest, EveryPageShowsWithinTheWindow) {
    HelpWindow window;
    window.Open(Path(QStringLiteral("HelpFile/DutygridHlp.hlp")));
    ASSERT_TRUE(BecomesActive(window));
    auto& page = Find<HelpPage>(window, QStringLiteral("Page"));
    for (const HelpTopic& topic : page.Book().Topics()) {
        page.GoTo(topic.Id);
        Settle();
        EXPECT_LE(page.document()->size().width(), page.viewport()->width())
            << topic.Id.toStdString();
    }
}

} // namespace
