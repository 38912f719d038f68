#include "support/clsRegistry.h"

#include "platform/runtime/RuntimeError.h"
#include "tests/common/RuntimeTest.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <functional>

namespace {

class RegistryTest : public RuntimeTest {
protected:
    static QString File() {
        return Path(QStringLiteral("UserConfig/sparkit-dutygrid/registry.json"));
    }
    static QString Key() { return QStringLiteral("Dutygrid"); }

    /// Puts a value of any type into the key's values, as another program could have.
    void Plant(const QString& name, int type, const QJsonValue& data) {
        registry.SetValue(HKEY_CURRENT_USER, Key(), name, QString());
        QJsonObject keys = QJsonDocument::fromJson(ReadFile(File())).object();
        QJsonObject values = keys.value(Key()).toObject();
        values[name] = QJsonObject{{QStringLiteral("type"), type}, {QStringLiteral("data"), data}};
        keys[Key()] = values;
        WriteFile(File(), QJsonDocument(keys).toJson());
    }

    QVariant Get(const QString& name) const {
        return registry.GetValue(HKEY_CURRENT_USER, Key(), name);
    }
    void Set(const QString& name, const QVariant& value) const {
        registry.SetValue(HKEY_CURRENT_USER, Key(), name, value);
    }

    clsRegistry registry;
};

/// `statement` raises the operation's number with its name as the text.
#define EXPECT_REGISTRY_ERROR(number, operation, statement)                                        \
    try {                                                                                          \
        statement;                                                                                 \
        ADD_FAILURE() << "no error";                                                               \
    } catch (const RuntimeError& error) {                                                          \
        EXPECT_EQ(error.Number(), number);                                                         \
        EXPECT_EQ(error.Text(), QStringLiteral(operation));                                        \
        EXPECT_EQ(error.Source(), QStringLiteral("clsRegistry"));                                  \
    }

const QString Marker = QStringLiteral("RunningTimes2");

TEST_F(RegistryTest, MarkerOfTheFirstRunGoesFromAbsentToOne) {
    EXPECT_FALSE(Get(Marker).isValid());
    EXPECT_EQ(Get(Marker).toInt(), 0);
    registry.CreateKey(HKEY_CURRENT_USER, Key());
    Set(Marker, QVariant::fromValue<qint16>(0));
    EXPECT_EQ(Get(Marker), QVariant(QStringLiteral("0")));
    Set(Marker, QVariant::fromValue<qint16>(1));
    EXPECT_EQ(Get(Marker).toInt(), 1);
    EXPECT_TRUE(QFile::exists(File()));
}

TEST_F(RegistryTest, NumberWrittenFirstTimeIsAString) {
    registry.CreateKey(HKEY_CURRENT_USER, Key());
    Set(QStringLiteral("Whole"), 42);
    Set(QStringLiteral("Half"), 2.5);
    Set(QStringLiteral("Truth"), true);
    EXPECT_EQ(Get(QStringLiteral("Whole")), QVariant(QStringLiteral("42")));
    EXPECT_EQ(Get(QStringLiteral("Half")), QVariant(QStringLiteral("2.5")));
    EXPECT_EQ(Get(QStringLiteral("Truth")), QVariant(QStringLiteral("True")));
}

TEST_F(RegistryTest, EmptyValueIsAnEmptyString) {
    registry.CreateKey(HKEY_CURRENT_USER, Key());
    Set(QStringLiteral("Nothing"), QVariant());
    EXPECT_EQ(Get(QStringLiteral("Nothing")), QVariant(QString()));
    EXPECT_EQ(Get(QStringLiteral("Nothing")).metaType().id(), QMetaType::QString);
}

TEST_F(RegistryTest, StoredTypeDecidesHowAnExistingValueIsStored) {
    registry.CreateKey(HKEY_CURRENT_USER, Key());
    Plant(QStringLiteral("Byte"), 3, 7);
    Plant(QStringLiteral("Long"), 4, -70000);
    EXPECT_EQ(Get(QStringLiteral("Byte")), QVariant::fromValue<quint8>(7));
    EXPECT_EQ(Get(QStringLiteral("Long")), QVariant(-70000));
    Set(QStringLiteral("Byte"), QStringLiteral("255"));
    Set(QStringLiteral("Long"), 2147483647);
    EXPECT_EQ(Get(QStringLiteral("Byte")), QVariant::fromValue<quint8>(255));
    EXPECT_EQ(Get(QStringLiteral("Long")), QVariant(2147483647));
    Set(QStringLiteral("Byte"), 0);
    EXPECT_EQ(Get(QStringLiteral("Byte")), QVariant::fromValue<quint8>(0));
    Set(QStringLiteral("Long"), 2.5);
    EXPECT_EQ(Get(QStringLiteral("Long")), QVariant(2));
    Set(QStringLiteral("Long"), true);
    EXPECT_EQ(Get(QStringLiteral("Long")), QVariant(-1));
    Set(QStringLiteral("Long"), QVariant());
    EXPECT_EQ(Get(QStringLiteral("Long")), QVariant(0));
}

TEST_F(RegistryTest, ValueThatDoesNotFitItsStoredTypeIsRefusedAndTheOldOneStays) {
    registry.CreateKey(HKEY_CURRENT_USER, Key());
    Plant(QStringLiteral("Byte"), 3, 7);
    Plant(QStringLiteral("Long"), 4, 8);
    EXPECT_REGISTRY_ERROR(11001, "SetValue", Set(QStringLiteral("Byte"), 256));
    EXPECT_REGISTRY_ERROR(11001, "SetValue", Set(QStringLiteral("Byte"), -1));
    EXPECT_REGISTRY_ERROR(11001, "SetValue", Set(QStringLiteral("Long"), 2147483648.0));
    EXPECT_REGISTRY_ERROR(11001, "SetValue", Set(QStringLiteral("Long"), QStringLiteral("seven")));
    EXPECT_EQ(Get(QStringLiteral("Byte")).toInt(), 7);
    EXPECT_EQ(Get(QStringLiteral("Long")).toInt(), 8);
}

TEST_F(RegistryTest, ValueOfAnyOtherTypeReadsEmptyAndIsLeftAsItIs) {
    registry.CreateKey(HKEY_CURRENT_USER, Key());
    Plant(QStringLiteral("Other"), 7, QStringLiteral("some"));
    const QByteArray before = ReadFile(File());
    Set(QStringLiteral("Other"), 5);
    EXPECT_FALSE(Get(QStringLiteral("Other")).isValid());
    EXPECT_EQ(ReadFile(File()), before);
}

TEST_F(RegistryTest, SetValueNeedsItsKey) {
    EXPECT_REGISTRY_ERROR(11001, "SetValue", Set(Marker, 1));
    EXPECT_FALSE(registry.KeyExists(HKEY_CURRENT_USER, Key()));
}

TEST_F(RegistryTest, OneLeadingBackslashIsDropped) {
    registry.CreateKey(HKEY_CURRENT_USER, QStringLiteral("\\Dutygrid"));
    EXPECT_TRUE(registry.KeyExists(HKEY_CURRENT_USER, Key()));
    EXPECT_TRUE(registry.KeyExists(HKEY_CURRENT_USER, QStringLiteral("\\Dutygrid")));
    EXPECT_FALSE(registry.KeyExists(HKEY_CURRENT_USER, QStringLiteral("\\\\Dutygrid")));
    EXPECT_REGISTRY_ERROR(11005, "CreateKey",
                          registry.CreateKey(HKEY_CURRENT_USER, QStringLiteral("\\\\Dutygrid")));
}

TEST_F(RegistryTest, CreatingAKeyMakesThoseAboveItAndKeepsWhatIsThere) {
    const QString deep = QStringLiteral("Dutygrid\\Forms\\Sizes");
    registry.CreateKey(HKEY_CURRENT_USER, Key());
    Set(Marker, 1);
    registry.CreateKey(HKEY_CURRENT_USER, deep);
    registry.CreateKey(HKEY_CURRENT_USER, Key());
    EXPECT_TRUE(registry.KeyExists(HKEY_CURRENT_USER, QStringLiteral("Dutygrid\\Forms")));
    EXPECT_TRUE(registry.KeyExists(HKEY_CURRENT_USER, deep));
    EXPECT_FALSE(registry.KeyExists(HKEY_CURRENT_USER, QStringLiteral("Forms")));
    EXPECT_EQ(Get(Marker).toInt(), 1);
}

TEST_F(RegistryTest, SubkeysAndValuesAreListedByIndexUntilAnEmptyName) {
    registry.CreateKey(HKEY_CURRENT_USER, QStringLiteral("Dutygrid\\Beta"));
    registry.CreateKey(HKEY_CURRENT_USER, QStringLiteral("Dutygrid\\Alpha"));
    Set(QStringLiteral("Two"), 2);
    Set(QStringLiteral("One"), 1);
    QStringList keys;
    QStringList values;
    for (qint32 index = 0; index < 2; ++index) {
        keys += registry.ListSubKey(HKEY_CURRENT_USER, Key(), index);
        values += registry.ListSubValue(HKEY_CURRENT_USER, Key(), index);
    }
    keys.sort();
    values.sort();
    EXPECT_EQ(keys, QStringList({QStringLiteral("Alpha"), QStringLiteral("Beta")}));
    EXPECT_EQ(values, QStringList({QStringLiteral("One"), QStringLiteral("Two")}));
    for (const qint32 past : {2, 3, 2147483647, -1}) {
        EXPECT_EQ(registry.ListSubKey(HKEY_CURRENT_USER, Key(), past), QString());
        EXPECT_EQ(registry.ListSubValue(HKEY_CURRENT_USER, Key(), past), QString());
    }
    EXPECT_EQ(registry.ListSubKey(HKEY_CURRENT_USER, QString(), 0), Key());
}

TEST_F(RegistryTest, KeysOfOneUserAreKeptApartFromAnother) {
    registry.CreateKey(HKEY_CURRENT_USER, Key());
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(Path(QStringLiteral("OtherUser"))));
    EXPECT_FALSE(registry.KeyExists(HKEY_CURRENT_USER, Key()));
}

TEST_F(RegistryTest, NamesMayHoldAnyCharacter) {
    const QStringList names = {QStringLiteral("a/b.c"),
                               QStringLiteral(" two  blanks "),
                               QStringLiteral("=;#[x]%20@\""),
                               QString::fromUtf8("Zoë 🎈"),
                               QStringLiteral("."),
                               QStringLiteral(".key"),
                               QStringLiteral("General"),
                               QString(200, QLatin1Char('x')),
                               QStringLiteral(".002f"),
                               QStringLiteral("line\r\nbreak")};
    for (const QString& name : names) {
        registry.CreateKey(HKEY_CURRENT_USER, name);
        registry.SetValue(HKEY_CURRENT_USER, name, name + QLatin1Char('\\'), name);
        registry.SetValue(HKEY_CURRENT_USER, name, QString(), QStringLiteral("default"));
    }
    QStringList listed;
    for (qint32 index = 0; index < names.size(); ++index)
        listed += registry.ListSubKey(HKEY_CURRENT_USER, QString(), index);
    EXPECT_EQ(QSet<QString>(listed.begin(), listed.end()),
              QSet<QString>(names.begin(), names.end()));
    for (const QString& name : names) {
        EXPECT_EQ(registry.GetValue(HKEY_CURRENT_USER, name, name + QLatin1Char('\\')),
                  QVariant(name));
        EXPECT_EQ(registry.GetValue(HKEY_CURRENT_USER, name, QString()),
                  QVariant(QStringLiteral("default")));
    }
}

TEST_F(RegistryTest, ValuesMayHoldAnyText) {
    registry.CreateKey(HKEY_CURRENT_USER, Key());
    for (const QString& text :
         {QStringLiteral("1, 2: \"three\";\r\nfour"), QString::fromUtf8("🎈 Zoë"),
          QStringLiteral("@ByteArray(x)"), QStringLiteral(" "), QString(5000, QLatin1Char('y'))}) {
        Set(QStringLiteral("Text"), text);
        EXPECT_EQ(Get(QStringLiteral("Text")), QVariant(text));
    }
}

TEST_F(RegistryTest, NamesIgnoreCaseAndKeepTheirFirstSpelling) {
    registry.CreateKey(HKEY_CURRENT_USER, Key());
    Set(Marker, 1);
    registry.CreateKey(HKEY_CURRENT_USER, QStringLiteral("DUTYGRID"));
    EXPECT_EQ(registry
                  .GetValue(HKEY_CURRENT_USER, QStringLiteral("dutygrid"),
                            QStringLiteral("RUNNINGTIMES2"))
                  .toInt(),
              1);
    EXPECT_EQ(registry.ListSubKey(HKEY_CURRENT_USER, QString(), 0), Key());
    EXPECT_EQ(registry.ListSubKey(HKEY_CURRENT_USER, QString(), 1), QString());
}

TEST_F(RegistryTest, DeletedValueIsGoneAndItsNeighbourStays) {
    registry.CreateKey(HKEY_CURRENT_USER, Key());
    Set(QStringLiteral("One"), 1);
    Set(QStringLiteral("Two"), 2);
    registry.DeleteValue(HKEY_CURRENT_USER, Key(), QStringLiteral("One"));
    EXPECT_FALSE(Get(QStringLiteral("One")).isValid());
    EXPECT_EQ(Get(QStringLiteral("Two")).toInt(), 2);
    EXPECT_REGISTRY_ERROR(11004, "DeleteValue",
                          registry.DeleteValue(HKEY_CURRENT_USER, Key(), QStringLiteral("One")));
}

TEST_F(RegistryTest, DeletedKeyTakesItsValuesAlong) {
    registry.CreateKey(HKEY_CURRENT_USER, QStringLiteral("Dutygrid\\Forms"));
    registry.SetValue(HKEY_CURRENT_USER, QStringLiteral("Dutygrid\\Forms"), Marker, 1);
    EXPECT_REGISTRY_ERROR(11006, "DeleteKey", registry.DeleteKey(HKEY_CURRENT_USER, Key()));
    registry.DeleteKey(HKEY_CURRENT_USER, QStringLiteral("Dutygrid\\Forms"));
    EXPECT_FALSE(registry.KeyExists(HKEY_CURRENT_USER, QStringLiteral("Dutygrid\\Forms")));
    EXPECT_TRUE(registry.KeyExists(HKEY_CURRENT_USER, Key()));
    registry.DeleteKey(HKEY_CURRENT_USER, Key());
    EXPECT_FALSE(registry.KeyExists(HKEY_CURRENT_USER, Key()));
    registry.CreateKey(HKEY_CURRENT_USER, Key());
    EXPECT_EQ(registry.ListSubValue(HKEY_CURRENT_USER, Key(), 0), QString());
}

TEST_F(RegistryTest, MissingKeysRaiseTheOperationsNumber) {
    EXPECT_REGISTRY_ERROR(11003, "ListSubKey", registry.ListSubKey(HKEY_CURRENT_USER, Key(), 0));
    EXPECT_REGISTRY_ERROR(11004, "DeleteValue",
                          registry.DeleteValue(HKEY_CURRENT_USER, Key(), Marker));
    EXPECT_REGISTRY_ERROR(11006, "DeleteKey", registry.DeleteKey(HKEY_CURRENT_USER, Key()));
    EXPECT_REGISTRY_ERROR(11006, "DeleteKey", registry.DeleteKey(HKEY_CURRENT_USER, QString()));
    EXPECT_REGISTRY_ERROR(11007, "ListSubValue",
                          registry.ListSubValue(HKEY_CURRENT_USER, Key(), 0));
}

TEST_F(RegistryTest, OtherRootsCannotBeOpened) {
    const quint32 machine = 0x80000002;
    EXPECT_FALSE(registry.KeyExists(machine, QString()));
    EXPECT_FALSE(registry.GetValue(machine, Key(), Marker).isValid());
    EXPECT_REGISTRY_ERROR(11001, "SetValue", registry.SetValue(machine, Key(), Marker, 1));
    EXPECT_REGISTRY_ERROR(11005, "CreateKey", registry.CreateKey(machine, Key()));
}

TEST_F(RegistryTest, KeysOfAnotherComputerCannotBeOpened) {
    const quint32 root = HKEY_CURRENT_USER;
    const QString other = QStringLiteral("schoolserver");
    registry.CreateKey(root, Key());
    Set(Marker, 1);
    EXPECT_FALSE(registry.GetValue(root, Key(), Marker, other).isValid());
    EXPECT_FALSE(registry.KeyExists(root, Key(), other));
    EXPECT_REGISTRY_ERROR(11001, "SetValue", registry.SetValue(root, Key(), Marker, 5, other));
    EXPECT_REGISTRY_ERROR(11003, "ListSubKey", registry.ListSubKey(root, Key(), 0, other));
    EXPECT_REGISTRY_ERROR(11004, "DeleteValue", registry.DeleteValue(root, Key(), Marker, other));
    EXPECT_REGISTRY_ERROR(11005, "CreateKey", registry.CreateKey(root, Key(), other));
    EXPECT_REGISTRY_ERROR(11006, "DeleteKey", registry.DeleteKey(root, Key(), other));
    EXPECT_REGISTRY_ERROR(11007, "ListSubValue", registry.ListSubValue(root, Key(), 0, other));
    EXPECT_EQ(Get(Marker).toInt(), 1) << "this computer's own";
}

TEST_F(RegistryTest, AskingAnotherComputerLeavesADamagedStoreAlone) {
    WriteFile(File(), "{");
    EXPECT_FALSE(registry.KeyExists(HKEY_CURRENT_USER, Key(), QStringLiteral("schoolserver")));
    EXPECT_EQ(ReadFile(File()), "{");
}

TEST_F(RegistryTest, StoreThatCannotBeWrittenRaisesTheOperationsNumber) {
    WriteFile(Path(QStringLiteral("UserConfig")), "in the way");
    EXPECT_REGISTRY_ERROR(11005, "CreateKey", registry.CreateKey(HKEY_CURRENT_USER, Key()));
    EXPECT_REGISTRY_ERROR(11001, "SetValue",
                          registry.SetValue(HKEY_CURRENT_USER, QString(), Marker, 1));
}

TEST_F(RegistryTest, DamagedStoreIsPutAsideAndBegunAfresh) {
    int number = 0;
    for (const QByteArray& damaged :
         {QByteArray("\x00\xff[[[\nno sense", 14), QByteArray("{\"Dutygrid\": {"), QByteArray(),
          QByteArray("[]"), QByteArray("{\"Dutygrid\": 5}"),
          QByteArray("{\"Dutygrid\": {\"RunningTimes2\": 1}}"), QByteArray(100000, '[')}) {
        SCOPED_TRACE(damaged.left(40).constData());
        WriteFile(File(), damaged);
        EXPECT_FALSE(Get(Marker).isValid());
        // Beside it, and in the place of none put aside before.
        EXPECT_FALSE(QFile::exists(File()));
        EXPECT_EQ(ReadFile(File() + QStringLiteral(".damaged%1").arg(++number)), damaged);
        registry.CreateKey(HKEY_CURRENT_USER, Key());
        Set(Marker, number);
        EXPECT_EQ(Get(Marker).toInt(), number);
    }
    EXPECT_EQ(QFileInfo(File()).dir().entryList(QDir::Files).size(), 1 + number);
}

TEST_F(RegistryTest, DamagedStoreIsPutAsideByWhicheverOperationMeetsIt) {
    const QList<std::function<void()>> operations = {
        [this] { Get(Marker); }, [this] { registry.KeyExists(HKEY_CURRENT_USER, Key()); },
        [this] { registry.CreateKey(HKEY_CURRENT_USER, Key()); },
        [this] { EXPECT_REGISTRY_ERROR(11001, "SetValue", Set(Marker, 1)); },
        [this] {
            EXPECT_REGISTRY_ERROR(11006, "DeleteKey", registry.DeleteKey(HKEY_CURRENT_USER, Key()));
        }};
    int number = 0;
    for (const auto& operation : operations) {
        WriteFile(File(), "{");
        operation();
        EXPECT_EQ(ReadFile(File() + QStringLiteral(".damaged%1").arg(++number)), "{");
    }
}

TEST_F(RegistryTest, StoreThatCannotBeReadIsAnErrorOfTheOperation) {
    QDir().mkpath(File());
    EXPECT_REGISTRY_ERROR(11002, "GetValue", Get(Marker));
    EXPECT_REGISTRY_ERROR(11005, "CreateKey", registry.CreateKey(HKEY_CURRENT_USER, Key()));
}

TEST_F(RegistryTest, DamagedValueIsAnErrorOfItsReadingOnly) {
    registry.CreateKey(HKEY_CURRENT_USER, Key());
    Plant(QStringLiteral("Long"), 4, QStringLiteral("x"));
    Plant(QStringLiteral("Byte"), 3, 1000);
    Plant(QStringLiteral("Text"), 1, 5);
    Plant(QStringLiteral("NoType"), 0, QStringLiteral("abc"));
    EXPECT_REGISTRY_ERROR(11002, "GetValue", Get(QStringLiteral("Long")));
    EXPECT_REGISTRY_ERROR(11002, "GetValue", Get(QStringLiteral("Byte")));
    EXPECT_REGISTRY_ERROR(11002, "GetValue", Get(QStringLiteral("Text")));
    EXPECT_FALSE(Get(QStringLiteral("NoType")).isValid());
}

} // namespace
