#pragma once

class PrinterObject;

/// Sets up the page of a printed sheet: the grid of 21 by 30 units, the title's place and its font.
void SetUpSheet(PrinterObject& printer);
