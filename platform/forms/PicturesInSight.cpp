#include "platform/forms/PicturesInSight.h"

#include "platform/forms/Handlers.h"
#include "platform/runtime/RuntimeError.h"

#include <QAbstractItemView>
#include <utility>

PicturesInSight::PicturesInSight(QAbstractItemView& view, int keyRole, Fetch fetch)
    : QObject(&view), view_(view), keyRole_(keyRole), fetch_(std::move(fetch)) {
    nothingElse_.setSingleShot(true);
    On(&nothingElse_, &QTimer::timeout, this, [this] { FetchNext(); });
    connect(view.model(), &QAbstractItemModel::modelReset, this, [this] {
        for (Kept& kept : kept_)
            kept.IsFresh = false;
    });
}

QPixmap PicturesInSight::Of(const QModelIndex& entry) {
    const Kept kept = kept_.value(entry.data(keyRole_).toString());
    if (!kept.IsFresh) {
        asked_.append(entry);
        if (!nothingElse_.isActive())
            nothingElse_.start();
    }
    return kept.Picture;
}

bool PicturesInSight::IsInSight(const QModelIndex& entry) const {
    return entry.isValid() && view_.isVisible() &&
           view_.viewport()->rect().intersects(view_.visualRect(entry));
}

void PicturesInSight::FetchNext() {
    while (!asked_.isEmpty()) {
        const QModelIndex entry = asked_.takeFirst();
        const QString key = entry.data(keyRole_).toString();
        if (!IsInSight(entry) || kept_.value(key).IsFresh)
            continue;
        constexpr int most = 1000;
        if (kept_.size() >= most)
            kept_.clear();
        QPixmap picture;
        WithErrorsSkipped([&] { picture = fetch_(key); });
        kept_.insert(key, {picture, true});
        view_.viewport()->update(view_.visualRect(entry));
        nothingElse_.start();
        return;
    }
}
