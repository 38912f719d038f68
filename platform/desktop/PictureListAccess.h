#pragma once

/// Makes the list of pictures in PictureDialog known to screen readers, each picture by its name
/// and its place. The toolkit counts the entries of the disk's first folder in place of those
/// shown, and takes each column of a file, of which one is shown, for an entry. To be run before
/// the dialog is made.
void InstallPictureListAccess();
