#pragma once

#include <QString>

class RuntimeError;

/// What is wrong with a database file, in the engine's words; "" if it is sound. Reads all of it
/// (the engine's own check, the catalogue, every row and every picture of every table) and writes
/// nothing.
QString WhatIsWrongWith(const QString& path);

/// True for the error of a file that is damaged or no database at all.
bool MeansDamage(const RuntimeError& error);
