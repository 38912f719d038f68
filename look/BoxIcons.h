#pragma once

#include <QIcon>

/// The flat pictures of message boxes: a warning's triangle and an error's disc, drawn at whatever
/// size they are asked for.
QIcon WarningIcon();
QIcon ErrorIcon();
