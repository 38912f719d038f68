#pragma once

/// Makes the chart editor and its dialogs known, and what fills the slots of ChartEditors.
void RegisterAuthoringForms();
