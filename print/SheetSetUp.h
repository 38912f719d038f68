#pragma once

class PrinterObject;

/// The grid of every printed page, 21 by 30 units.
void SetUpGrid(PrinterObject& printer);

/// Sets up the page of a printed sheet: the grid, the title's place and its font.
void SetUpSheet(PrinterObject& printer);
