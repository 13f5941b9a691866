#pragma once

#include <QString>

// Pictures and music of the sample database, made by code so that nothing has to be shipped.
namespace SampleMedia {

// Writes a picture of the given kind ("sunrise", "cross", "window") to strPath (format from the
// suffix, .bmp or .jpg). False when the file could not be written.
bool WritePicture(const QString& strPath, const QString& kind);
// Writes a WAV file with the first line of the tune Old Hundredth (Genevan Psalter, 1551),
// played as soft organ-like tones, about eight seconds long.
bool WriteOldHundredth(const QString& strPath);

} // namespace SampleMedia
