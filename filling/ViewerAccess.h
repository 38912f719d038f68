#pragma once

/// Makes the viewer's marks known to screen readers as boxes to tick, its rows as entries of a
/// list.
void InstallViewerAccess();
