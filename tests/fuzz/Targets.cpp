#include "tests/fuzz/Targets.h"

#include "help/HelpBook.h"
#include "platform/printing/PrintoutFolder.h"
#include "platform/runtime/Dates.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Pictures.h"
#include "platform/runtime/ProgramFolder.h"
#include "platform/runtime/TextFiles.h"
#include "platform/runtime/WaveFiles.h"
#include "session/Session.h"
#include "session/Settings.h"
#include "store/DayTexts.h"
#include "store/JobNameFile.h"
#include "store/Pictures.h"
#include "support/RegionData.h"
#include "support/clsRegistry.h"
#include "tests/common/MemoryFolder.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <tuple>

namespace {

/// What a target promises of whatever it has read. Kept in every build.
void Require(bool isTrue, const char* what) {
    if (isTrue)
        return;
    std::cerr << "not so: " << what << std::endl;
    std::abort();
}

/// Runs what may refuse its input with an error that the user is told.
template <class Work>
bool IsAccepted(Work&& work) {
    try {
        work();
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

/// Writing takes many times as long as reading does: one input of some is also written back.
bool IsWrittenBack(const QByteArray& bytes) {
    return qChecksum(bytes) % 16 == 0;
}

QString Put(const QString& name, const QByteArray& bytes) {
    const QString path = InProgramFolder(name);
    QFile file(path);
    Require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(),
            "the input can be written");
    return path;
}

void ReadVal(const QByteArray& bytes) {
    const double number = Val(QString::fromUtf8(bytes));
    Require(!std::isnan(number), "Val gives a number");
    if (std::abs(number) < 1e9 && number == std::floor(number))
        Require(Val(NumberText(number)) == number, "Val reads what NumberText writes");
}

void ReadNumbers(const QByteArray& bytes) {
    const QVariant text = QString::fromUtf8(bytes);
    qint16 small = 0;
    qint32 large = 0;
    const bool isSmall = IsAccepted([&] { small = IntegerOf(text); });
    const bool isLarge = IsAccepted([&] { large = LongOf(text); });
    Require(isLarge || !isSmall, "a small number is a number");
    if (isSmall)
        Require(small == large, "both read the same");
    if (isLarge)
        Require(LongOf(NumberText(large)) == large, "it reads what NumberText writes");
}

void ReadDates(const QByteArray& bytes) {
    const QString text = QString::fromUtf8(bytes);
    QDate date;
    if (IsAccepted([&] { date = DateFromText(text); })) {
        Require(date.isValid(), "a date that is read is one");
        Require(DateFromText(DateText(date)) == date, "it reads what DateText writes");
        Require(!WeekdayName(date).isEmpty(), "it has a weekday");
    }
    const QStringList days = DaysOf(text);
    Require(!days.isEmpty() && days.size() <= DaysOfWeek, "there are one to seven days");
    Require(IsRange(text) || days.front() == text, "what is no range is itself");
    const int number = SingleDayNumber(text);
    Require(number >= 0 && number <= DaysOfWeek, "a day has a number");
    Require(number == 0 || (DayAbbreviation(number) == text && !FullDayName(text).isEmpty()),
            "a day with a number is one");
}

class SettingsSeen : public SettingsForms {
public:
    void SelectVersion(bool) override {}
    qint32 BackColor() const override { return color_; }
    void SetBackColor(qint32 color) override { color_ = color; }
    void SetPicture(const QImage&) override {}
    void SetSoundMark(bool) override {}

private:
    qint32 color_ = 0;
};

void ReadSettingsFile(const QByteArray& bytes) {
    Put(QStringLiteral("Settings/Settings.txt"), bytes);
    SettingsSeen forms;
    SetSettingsForms(&forms);
    if (IsAccepted([] { ReadSettings(); }) && IsWrittenBack(bytes)) {
        const auto seen = [&forms] {
            return std::tuple(SeeOtherAccounts, SchoolFlag, SoundOn, forms.BackColor());
        };
        const auto before = seen();
        WriteSettings();
        // A picture's name with a comma or a quote is not read as it was written.
        if (BackgroundPicture.isEmpty()) {
            Require(IsAccepted([] { ReadSettings(); }), "it reads what it writes");
            Require(seen() == before, "what it writes is what it has read");
        }
    }
    SetSettingsForms(nullptr);
}

void ReadJobList(const QByteArray& bytes) {
    Put(QStringLiteral("Jobs/HomeJobs.dat"), bytes);
    InputFile file(JobNameFile(false));
    qsizetype items = 0;
    qsizetype letters = 0;
    while (!file.AtEnd()) {
        letters += file.InputText().size();
        Require(++items <= bytes.size(), "every item takes something");
    }
    Require(letters <= bytes.size(), "nothing is read twice");
    if (items > 0)
        Require(!IsAccepted([&] { file.InputText(); }), "nothing is read behind the end");
}

void ReadRegistry(const QByteArray& bytes) {
    const QString path = Put(QStringLiteral("UserConfig/sparkit-dutygrid/registry.json"), bytes);
    const clsRegistry registry;
    const QString key = QStringLiteral("Software\\Dutygrid");
    const QString value = QStringLiteral("State");
    IsAccepted([&] { registry.GetValue(HKEY_CURRENT_USER, key, value); });
    if (IsWrittenBack(bytes)) {
        for (const QString& name : {QString(), QStringLiteral("Software"), key})
            for (qint32 index = 0; index < 3; ++index) {
                IsAccepted([&] { registry.ListSubKey(HKEY_CURRENT_USER, name, index); });
                IsAccepted([&] { registry.ListSubValue(HKEY_CURRENT_USER, name, index); });
            }
        registry.CreateKey(HKEY_CURRENT_USER, key);
        Require(registry.KeyExists(HKEY_CURRENT_USER, key), "a key that was made is there");
        IsAccepted([&] { registry.DeleteValue(HKEY_CURRENT_USER, key, value); });
        registry.SetValue(HKEY_CURRENT_USER, key, value, QStringLiteral("x"));
        Require(registry.GetValue(HKEY_CURRENT_USER, key, value) == QVariant(QStringLiteral("x")),
                "a value that was stored is there");
    }
    // Whatever was put aside as damaged is in the way of no other input.
    QFile::remove(path);
    int aside = 1;
    while (QFile::remove(path + QStringLiteral(".damaged%1").arg(aside)))
        ++aside;
}

void ReadRegion(const QByteArray& bytes) {
    const std::unique_ptr<QRegion> region = ExtCreateRegion(bytes);
    if (!region)
        return;
    const std::unique_ptr<QRegion> again = ExtCreateRegion(GetRegionData(region.get()));
    Require(again && *again == *region, "it reads what it writes");
}

void NameFile(const QByteArray& bytes) {
    const QString account = QString::fromUtf8(bytes);
    const QString name = ScratchFileName(account);
    Require(!name.isEmpty() && name.toUtf8().size() <= 255, "a file system takes the name");
    const QString printout = PrintoutName(account);
    for (const char16_t letter : u"/\\:*?\"<>|\n\r\t") {
        Require(!name.contains(QChar(letter)), "no letter of it leads elsewhere");
        Require(!printout.contains(QChar(letter)), "nor one of a printout's");
    }
    Require(printout.toUtf8().size() <= 230, "there is room for a number and the ending");
    Require(!printout.startsWith(QLatin1Char('.')), "a printout is seen");
    Require(PrintoutName(printout) == printout, "a legal name stays as it is");
    Require(name != QLatin1String(".") && name != QLatin1String(".."), "it names a file");
    Require(ScratchFileName(account) == name, "an account has one name");
    if (!account.startsWith(QLatin1String("picture-")))
        Require(name == account || name.startsWith(QLatin1String("picture-")),
                "it is no other account's");
}

void ReadHelp(const QByteArray& bytes) {
    const HelpBook book(Put(QStringLiteral("Help.hlp"), bytes));
    Require(!book.Topics().isEmpty(), "there is a page");
    for (const HelpTopic& topic : book.Topics()) {
        Require(book.PageOf(topic.Id) >= 0, "every page is found");
        for (const HelpSection& section : topic.Sections)
            Require(book.PageOf(section.Id) >= 0, "every section is found");
    }
    const QStringList words = SearchWords(book.Topics().front().Text.left(200));
    Require(words.isEmpty() || !book.Find(words.mid(0, 1)).isEmpty(), "a word of a page is found");
}

void ReadPicture(const QByteArray& bytes) {
    const QString path = Put(QStringLiteral("picture"), bytes);
    QImage picture;
    if (IsAccepted([&] { picture = LoadPicture(path); }))
        Require(!picture.isNull(), "a picture that is read is one");
}

void ReadWave(const QByteArray& bytes) {
    constexpr qsizetype heads = 44; // bytes before the first sample, at least
    if (!IsWholeWave(bytes))
        return;
    Require(!IsWholeWave(bytes.left(heads)), "a wave without samples is none");
    Require(IsWholeWave(bytes + "more"), "what stands behind a wave does not matter");
}

constexpr FuzzTarget Targets[] = {
    {"val", ReadVal},        {"numbers", ReadNumbers},
    {"dates", ReadDates},    {"settings", ReadSettingsFile},
    {"jobs", ReadJobList},   {"registry", ReadRegistry},
    {"regions", ReadRegion}, {"names", NameFile},
    {"help", ReadHelp},      {"pictures", ReadPicture},
    {"waves", ReadWave},
};

} // namespace

std::span<const FuzzTarget> FuzzTargets() {
    return Targets;
}

const FuzzTarget* FuzzTargetNamed(const char* name) {
    const auto found =
        std::find_if(std::begin(Targets), std::end(Targets), [name](const FuzzTarget& target) {
            return std::string_view(target.Name) == name;
        });
    return found == std::end(Targets) ? nullptr : found;
}

FuzzWorld::FuzzWorld()
    : folder_(MemoryFolder()), run_({.Boxes = &boxes_, .ProgramFolder = folder_.path()}) {
    for (const char* name : {"Settings", "Jobs", "UserConfig/sparkit-dutygrid"})
        QDir(folder_.path()).mkpath(QString::fromLatin1(name));
}
