#pragma once

#include <QString>

class QLineEdit;
class QRadioButton;

// Small helpers shared by the files of the Run Mode Details tab.
namespace RunDetails {

// The name of a file without its folder; "\" and "/" both separate folders,
// as stored paths may hold either.
QString BareFileName(const QString& strPath);

// Whether the file's extension is that of a picture the projector can show.
bool IsPictureFile(const QString& strPath);
// The same for a piece of music the console's player takes.
bool IsMusicFile(const QString& strPath);

// The number typed in a box, 0 when it holds none.
double BoxNumber(const QLineEdit* box);
// The display time of the minutes and seconds boxes, in seconds.
double DisplaySeconds(const QLineEdit* minutes, const QLineEdit* seconds);
// The longest display time the store holds (a little over nine hours).
constexpr qint32 kMostDisplaySeconds = 32767;

// Deselects an option even when it is the selected one of its group.
void ClearOption(QRadioButton* option);

} // namespace RunDetails
