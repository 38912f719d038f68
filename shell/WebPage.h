#pragma once

#include <QString>

/// Address of the product's web page, opened in the default browser.
inline const QString ProductWebPage = QStringLiteral("https://sparkit-dutygrid.example");
