#pragma once

#include <QString>

/// Path of the list of job names: one for the school version, one for the home version.
QString JobNameFile(bool isSchool);
