#pragma once

class PrinterObject;
class QString;

/// Lays the page's grid, 21 units across and 30 down, and prints the title in 18 points at (4, 1).
void PrintSheetTitle(PrinterObject& printer, const QString& title);
