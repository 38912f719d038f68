#include "help/HelpBook.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTextDocumentFragment>
#include <algorithm>

namespace {

// Bytes; no help that a person reads is longer, and a damaged file may be.
constexpr qint64 LongestFile = 4'000'000;

QString PlainText(const QString& html) {
    return QTextDocumentFragment::fromHtml(html).toPlainText().simplified();
}

QRegularExpression Pattern(const char* pattern) {
    return QRegularExpression(QString::fromLatin1(pattern),
                              QRegularExpression::DotMatchesEverythingOption |
                                  QRegularExpression::CaseInsensitiveOption);
}

QString IdIn(const QString& attributes) {
    static const QRegularExpression id = Pattern("\\bid\\s*=\\s*\"([^\"]+)\"");
    return id.match(attributes).captured(1);
}

} // namespace

HelpBook::HelpBook(const QString& file) : folder_(QFileInfo(file).absolutePath()) {
    QFile source(file);
    // A pipe would be waited for.
    if (QFileInfo(file).isFile() && source.open(QIODevice::ReadOnly))
        ReadPages(QString::fromUtf8(source.read(std::min(source.size(), LongestFile))));
    if (topics_.isEmpty())
        Apologise(file);
}

void HelpBook::ReadPages(QString document) {
    static const QRegularExpression comment = Pattern("<!--.*?-->");
    static const QRegularExpression end = Pattern("</body\\s*>.*");
    static const QRegularExpression heading = Pattern("<h([12])\\b([^>]*)>(.*?)</h\\1\\s*>");
    document.remove(comment).remove(end);

    QString head;
    qsizetype pageStart = 0;
    const auto endPage = [&](qsizetype pageEnd) {
        const QString part = document.mid(pageStart, pageEnd - pageStart);
        if (topics_.isEmpty()) {
            head = part;
            return;
        }
        HelpTopic& topic = topics_.last();
        topic.Text = PlainText(part);
        topic.Html = head + part + QStringLiteral("</body></html>");
    };
    for (auto matches = heading.globalMatch(document); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const HelpSection section{IdIn(match.captured(2)), PlainText(match.captured(3))};
        if (match.captured(1) == QLatin1String("1")) {
            endPage(match.capturedStart());
            pageStart = match.capturedStart();
            HelpTopic topic;
            topic.Id = section.Id.isEmpty() ? QStringLiteral("page%1").arg(topics_.size() + 1)
                                            : section.Id;
            topic.Title = section.Title;
            topics_ += topic;
        } else if (!topics_.isEmpty() && !section.Id.isEmpty()) {
            topics_.last().Sections += section;
        }
    }
    endPage(document.size());
}

void HelpBook::Apologise(const QString& file) {
    const QString reason = QFileInfo(file).isFile()
                               ? QStringLiteral("The help file is empty or damaged.")
                               : QStringLiteral("The help file cannot be found.");
    HelpTopic topic;
    topic.Id = QStringLiteral("no-help");
    topic.Title = QStringLiteral("There is no help");
    topic.Html =
        QStringLiteral("<h1>%1</h1><p>%2</p><p>It should be here:<br>%3</p>"
                       "<p>The program works without it. To bring it back, copy the folder "
                       "<b>HelpFile</b> from a safety copy, or install the program again: "
                       "that leaves your accounts and Dutygrids as they are.</p>")
            .arg(topic.Title, reason, QDir::toNativeSeparators(file).toHtmlEscaped());
    topic.Text = PlainText(topic.Html);
    topics_ = {topic};
}

qsizetype HelpBook::PageOf(const QString& id) const {
    const auto page = std::find_if(topics_.begin(), topics_.end(), [&](const HelpTopic& topic) {
        return topic.Id == id ||
               std::any_of(topic.Sections.begin(), topic.Sections.end(),
                           [&](const HelpSection& section) { return section.Id == id; });
    });
    return page == topics_.end() ? -1 : page - topics_.begin();
}

QList<qsizetype> HelpBook::Find(const QStringList& words) const {
    QList<qsizetype> found;
    for (qsizetype page = 0; page < topics_.size() && !words.isEmpty(); ++page)
        if (std::all_of(words.begin(), words.end(), [&](const QString& word) {
                return topics_.at(page).Text.contains(word, Qt::CaseInsensitive);
            }))
            found += page;
    return found;
}

QStringList SearchWords(const QString& typed) {
    static const QRegularExpression marks(QStringLiteral("^[\\p{P}\\p{S}]+|[\\p{P}\\p{S}]+$"),
                                          QRegularExpression::UseUnicodePropertiesOption);
    QStringList words;
    for (QString word : typed.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts))
        if (!word.remove(marks).isEmpty())
            words += word;
    return words;
}
