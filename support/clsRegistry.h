#pragma once

#include <QString>
#include <QVariant>
#include <QtGlobal>

/// The root of the current user's keys, the only root that can be opened here.
inline constexpr quint32 HKEY_CURRENT_USER = 0x80000001;

/// Keys and values that belong to the user of the machine and outlive the program, as a tree like
/// the Windows registry's. It is kept in the file sparkit-dutygrid/registry.json in the user's
/// folder for settings; nothing is kept between calls.
///
/// A key path has its names separated by backslashes; one backslash before it is dropped. Names
/// ignore case. No key of another computer, one named other than "", can be opened. A damaged file
/// is renamed and the keys begin afresh. Where an operation fails it raises the number named with
/// it, its own name as the text and "clsRegistry" as the source.
///
/// The program keeps its first-run marker here, for which it needs CreateKey, GetValue and SetValue
/// alone.
class clsRegistry {
public:
    /// Stores a value. One that is not there yet becomes a string, whatever is passed; otherwise
    /// its stored type decides: 1 a string, 3 one byte, 4 a 32-bit integer, any other type leaves
    /// it as it is. Raises 11001, also if the key is not there.
    void SetValue(quint32 root, const QString& keyPath, const QString& valueName,
                  const QVariant& value, const QString& computerName = QString()) const;

    /// The value by its stored type: a QString, a quint8 or a qint32. An invalid QVariant if the
    /// key or the value is not there or of any other type. Raises 11002.
    QVariant GetValue(quint32 root, const QString& keyPath, const QString& valueName,
                      const QString& computerName = QString()) const;

    /// The name of a key's subkey by its index from 0, "" past the end. Raises 11003, also if the
    /// key is not there.
    QString ListSubKey(quint32 root, const QString& keyPath, qint32 index,
                       const QString& computerName = QString()) const;

    /// Raises 11004, also if the key or the value is not there.
    void DeleteValue(quint32 root, const QString& keyPath, const QString& valueName,
                     const QString& computerName = QString()) const;

    /// Makes a key and those above it; one that is there stays as it is. Raises 11005.
    void CreateKey(quint32 root, const QString& keyPath,
                   const QString& computerName = QString()) const;

    /// Deletes a key with its values. Raises 11006, also if the key is not there or has subkeys.
    void DeleteKey(quint32 root, const QString& keyPath,
                   const QString& computerName = QString()) const;

    /// The name of a key's value by its index from 0, "" past the end. Raises 11007, also if the
    /// key is not there.
    QString ListSubValue(quint32 root, const QString& keyPath, qint32 index,
                         const QString& computerName = QString()) const;

    /// True if the key can be opened. Raises 11008.
    bool KeyExists(quint32 root, const QString& keyPath,
                   const QString& computerName = QString()) const;
};
