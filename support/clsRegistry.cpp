#include "support/clsRegistry.h"

#include "platform/runtime/FileFaults.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/WholeFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QStringList>
#include <limits>
#include <map>
#include <optional>
#include <utility>

namespace {

// Types of values, by the registry's numbers.
constexpr int StringType = 1;
constexpr int ByteType = 3;
constexpr int LongType = 4;

/// A fault inside an operation; its text goes nowhere, the operation puts its own in the place and
/// keeps the advice.
RuntimeError Fault() {
    return RuntimeError(ErrorNumber::PathFileAccessError);
}

/// Runs an operation's body; every run-time error in it becomes the operation's own.
template <class Body>
auto Operation(int number, const QString& name, Body&& body) {
    try {
        return body();
    } catch (const RuntimeError& fault) {
        RuntimeError own(number, name, QStringLiteral("clsRegistry"));
        own.SetAdvice(fault.Advice());
        throw own;
    }
}

struct IgnoringCase {
    bool operator()(const QString& left, const QString& right) const {
        return left.compare(right, Qt::CaseInsensitive) < 0;
    }
};

struct StoredValue {
    int type = StringType;
    QJsonValue data;

    qint32 Number(qint32 lowest, qint32 highest) const {
        const double number = data.toDouble(std::numeric_limits<double>::quiet_NaN());
        if (!(number >= lowest && number <= highest))
            throw Fault();
        return ToLong(number);
    }
};

using Values = std::map<QString, StoredValue, IgnoringCase>;
using Keys = std::map<QString, Values, IgnoringCase>;

/// The user's keys by their full paths, as in the file: an object with a member for each key, in
/// it one for each value, in that the value's type and data.
class Store {
public:
    /// Reads the file; one that is not there yet is an empty store. A damaged one is put aside,
    /// for a user who knows what was in it, and the store begins afresh.
    Store(quint32 root, const QString& keyPath, const QString& computerName)
        : rootIsHere_(root == HKEY_CURRENT_USER && computerName.isEmpty()),
          path_(keyPath.startsWith(QLatin1Char('\\')) ? keyPath.mid(1) : keyPath) {
        if (rootIsHere_ && QFileInfo::exists(FileName())) {
            constexpr qint64 most = 64 << 20; // bytes
            if (auto keys = ReadKeys(ReadWholeFile(FileName(), most)))
                keys_ = std::move(*keys);
            else
                PutAside();
        }
        keys_[QString()];
    }

    /// The values of the key; null if it is not there.
    Values* Open() {
        const auto key = keys_.find(path_);
        return rootIsHere_ && key != keys_.end() ? &key->second : nullptr;
    }

    Values& OpenOrFail() {
        Values* values = Open();
        if (values == nullptr)
            throw Fault();
        return *values;
    }

    /// Makes the key and those above it as needed.
    void Create() {
        const QStringList names = path_.split(QLatin1Char('\\'));
        if (!rootIsHere_ || (!path_.isEmpty() && names.contains(QString())))
            throw Fault();
        QString path;
        for (const QString& name : names) {
            path += path.isEmpty() ? name : QLatin1Char('\\') + name;
            keys_[path];
        }
    }

    void Delete() {
        OpenOrFail();
        if (path_.isEmpty() || !SubKeys().isEmpty())
            throw Fault();
        keys_.erase(path_);
    }

    QStringList SubKeys() const {
        const QString above = path_.isEmpty() ? QString() : path_ + QLatin1Char('\\');
        QStringList names;
        for (const auto& [path, values] : keys_) {
            if (path.isEmpty() || !path.startsWith(above, Qt::CaseInsensitive))
                continue;
            const QString name = path.mid(above.size());
            if (!name.contains(QLatin1Char('\\')))
                names += name;
        }
        return names;
    }

    /// Puts a new file in the place of the old one; fails if the disk refuses it.
    void Write() const {
        QJsonObject keys;
        for (const auto& [path, values] : keys_) {
            QJsonObject members;
            for (const auto& [name, value] : values)
                members[name] = QJsonObject{{TypeMember(), value.type}, {DataMember(), value.data}};
            keys[path] = members;
        }
        QDir().mkpath(QFileInfo(FileName()).path());
        ReplaceFile(FileName(), QJsonDocument(keys).toJson());
    }

private:
    static QString FileName() {
        return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
               QStringLiteral("/sparkit-dutygrid/registry.json");
    }
    static QString TypeMember() { return QStringLiteral("type"); }
    static QString DataMember() { return QStringLiteral("data"); }

    /// Nothing if the text is not what Write writes.
    static std::optional<Keys> ReadKeys(const QByteArray& text) {
        const QJsonDocument document = QJsonDocument::fromJson(text);
        if (!document.isObject())
            return std::nullopt;
        Keys result;
        const QJsonObject keys = document.object();
        for (auto key = keys.begin(); key != keys.end(); ++key) {
            if (!key.value().isObject())
                return std::nullopt;
            Values& values = result[key.key()];
            const QJsonObject members = key.value().toObject();
            for (auto member = members.begin(); member != members.end(); ++member) {
                if (!member.value().isObject())
                    return std::nullopt;
                const QJsonObject value = member.value().toObject();
                values[member.key()] = {value.value(TypeMember()).toInt(),
                                        value.value(DataMember())};
            }
        }
        return result;
    }

    /// Renames the file to the first free one of registry.json.damaged1, 2 and so on.
    static void PutAside() {
        const QString aside = FileName() + QStringLiteral(".damaged");
        int number = 1;
        while (QFileInfo::exists(aside + QString::number(number)))
            ++number;
        if (!RenameToFreeName(FileName(), aside + QString::number(number)))
            throw WriteFault(ErrorNumber::PathFileAccessError, FileName());
    }

    bool rootIsHere_;
    QString path_;
    Keys keys_;
};

QString TextFor(const QVariant& value) {
    return value.isValid() ? TextOf(value) : QString();
}

/// A value as a whole number; an empty one is 0.
qint32 WholeNumberFor(const QVariant& value) {
    return value.isValid() ? LongOf(value) : 0;
}

quint8 ByteFor(const QVariant& value) {
    const qint32 number = WholeNumberFor(value);
    if (number < 0 || number > 255)
        throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<quint8>(number);
}

} // namespace

void clsRegistry::SetValue(quint32 root, const QString& keyPath, const QString& valueName,
                           const QVariant& value, const QString& computerName) const {
    Operation(11001, QStringLiteral("SetValue"), [&] {
        Store store(root, keyPath, computerName);
        // A value that is not there yet comes into being here, as a string.
        StoredValue& stored = store.OpenOrFail()[valueName];
        if (stored.type == StringType)
            stored.data = TextFor(value);
        else if (stored.type == ByteType)
            stored.data = ByteFor(value);
        else if (stored.type == LongType)
            stored.data = WholeNumberFor(value);
        store.Write();
    });
}

QVariant clsRegistry::GetValue(quint32 root, const QString& keyPath, const QString& valueName,
                               const QString& computerName) const {
    return Operation(11002, QStringLiteral("GetValue"), [&]() -> QVariant {
        Store store(root, keyPath, computerName);
        const Values* values = store.Open();
        if (values == nullptr)
            return {};
        const auto found = values->find(valueName);
        if (found == values->end())
            return {};
        const StoredValue& stored = found->second;
        switch (stored.type) {
        case StringType:
            if (!stored.data.isString())
                throw Fault();
            return stored.data.toString();
        case ByteType:
            return QVariant::fromValue(static_cast<quint8>(stored.Number(0, 255)));
        case LongType:
            return stored.Number(std::numeric_limits<qint32>::min(),
                                 std::numeric_limits<qint32>::max());
        default:
            return {};
        }
    });
}

QString clsRegistry::ListSubKey(quint32 root, const QString& keyPath, qint32 index,
                                const QString& computerName) const {
    return Operation(11003, QStringLiteral("ListSubKey"), [&] {
        Store store(root, keyPath, computerName);
        store.OpenOrFail();
        return store.SubKeys().value(index);
    });
}

void clsRegistry::DeleteValue(quint32 root, const QString& keyPath, const QString& valueName,
                              const QString& computerName) const {
    Operation(11004, QStringLiteral("DeleteValue"), [&] {
        Store store(root, keyPath, computerName);
        if (store.OpenOrFail().erase(valueName) == 0)
            throw Fault();
        store.Write();
    });
}

void clsRegistry::CreateKey(quint32 root, const QString& keyPath,
                            const QString& computerName) const {
    Operation(11005, QStringLiteral("CreateKey"), [&] {
        Store store(root, keyPath, computerName);
        store.Create();
        store.Write();
    });
}

void clsRegistry::DeleteKey(quint32 root, const QString& keyPath,
                            const QString& computerName) const {
    Operation(11006, QStringLiteral("DeleteKey"), [&] {
        Store store(root, keyPath, computerName);
        store.Delete();
        store.Write();
    });
}

QString clsRegistry::ListSubValue(quint32 root, const QString& keyPath, qint32 index,
                                  const QString& computerName) const {
    return Operation(11007, QStringLiteral("ListSubValue"), [&] {
        Store store(root, keyPath, computerName);
        QStringList names;
        for (const auto& [name, value] : store.OpenOrFail())
            names += name;
        return names.value(index);
    });
}

bool clsRegistry::KeyExists(quint32 root, const QString& keyPath,
                            const QString& computerName) const {
    return Operation(11008, QStringLiteral("KeyExists"),
                     [&] { return Store(root, keyPath, computerName).Open() != nullptr; });
}
