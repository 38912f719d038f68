#pragma once

#include "widgets/ClickRules.h"

#include <QListWidget>

/// A list of names that tells of its clicks.
class ClickList : public ClickView<QListWidget> {
    Q_OBJECT

public:
    explicit ClickList(QWidget* parent = nullptr) : ClickView(parent) {}
};
