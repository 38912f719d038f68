#pragma once

#include <QIcon>

/// A picture of the toolbar, drawn for each size that the scales of screens ask for. Nothing is
/// read before it is shown.
QIcon ToolbarIcon(const QString& key);
