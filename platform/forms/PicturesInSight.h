#pragma once

#include <QHash>
#include <QObject>
#include <QPersistentModelIndex>
#include <QPixmap>
#include <QTimer>
#include <functional>

class QAbstractItemView;

/// The pictures of a list's entries, for what paints these. A picture is fetched once its entry has
/// been painted, one at a time between all other events, and only while the entry is in sight:
/// no form waits for pictures, and a long list costs no more than a short one.
class PicturesInSight : public QObject {
    Q_OBJECT

public:
    /// The picture that belongs to a key; a null one where there is none. Errors count as none.
    using Fetch = std::function<QPixmap(const QString& key)>;

    /// `keyRole`: the data of an entry by which its picture is fetched, and kept.
    PicturesInSight(QAbstractItemView& view, int keyRole, Fetch fetch);

    /// To be asked while the entry is painted. Null until the picture has been fetched. After the
    /// list has been filled anew it is the former one until that has been fetched again.
    QPixmap Of(const QModelIndex& entry);

private:
    struct Kept {
        QPixmap Picture;
        bool IsFresh = false;
    };

    void FetchNext();
    bool IsInSight(const QModelIndex& entry) const;

    QAbstractItemView& view_;
    int keyRole_;
    Fetch fetch_;
    QHash<QString, Kept> kept_;
    /// Painted without a fresh picture.
    QList<QPersistentModelIndex> asked_;
    QTimer nothingElse_;
};
