#pragma once

#include <QStringList>

class PrinterObject;

/// The grid of every printed page, 21 by 30 units.
void SetUpGrid(PrinterObject& printer);

/// Sets up the page of a printed sheet: the grid, the title's place and its font.
void SetUpSheet(PrinterObject& printer);

/// What a sheet shows, in a few words: those of `parts` that say something.
QString SheetName(const QStringList& parts);
