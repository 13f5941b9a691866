#pragma once

// What the suites of the options control share: a fresh settings file and
// database per test, reading both stores back, and a platform that records
// the flags of the font dialog.

#include "ScriptedPlatform.h"
#include "TestDatabase.h"

#include "DataAccess.h"
#include "Settings.h"
#include "foundations/SSTab.h"
#include "foundations/Twips.h"
#include "options/ctlOptions.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QtTest>

#include <memory>

namespace OptionsTest {

// Removes Corvantis.ini (and anything left in its place).
inline void RemoveSettingsFile() {
    const QString path = Settings::IniPath();
    QFileInfo info(path);
    if (info.isDir())
        QDir(path).removeRecursively();
    else
        QFile::remove(path);
}

inline bool SettingsFileExists() {
    return QFileInfo::exists(Settings::IniPath());
}

// A key of Corvantis.ini; a null text when it is missing.
inline QString Setting(const QString& strSection, const QString& strKey) {
    return Settings::GetPrivateProfileString(strSection, strKey, QString());
}
inline QString Option(const QString& strKey) {
    return Setting(QStringLiteral("Options"), strKey);
}

// A field of the options row, read directly from the file.
inline QVariant Field(const TestDatabase& db, const QString& strField) {
    return db.Scalar(QStringLiteral("SELECT \"%1\" FROM Options").arg(strField));
}

// Writes a small real picture and returns its full name.
inline QString WritePicture(const QString& strPath, Qt::GlobalColor color = Qt::darkGreen,
                            const char* format = nullptr) {
    QImage image(32, 24, QImage::Format_RGB32);
    image.fill(color);
    QDir().mkpath(QFileInfo(strPath).absolutePath());
    return image.save(strPath, format) ? strPath : QString();
}

// Brings a tab up as the user does, raising SSTab1's Click.
inline void ShowTab(ctlOptions& options, qint16 intTab) {
    options.SSTab1->setCurrentIndex(intTab);
}

// Records the flags and preset colour of each font dialog.
class FontDialogPlatform : public ScriptedPlatform {
public:
    QFont ShowFontAndColor(const QFont& fntInitial, qint32& lngColor, qint32 lngFlags,
                           bool blnCancelError) override {
        FontFlags << lngFlags;
        PresetFonts << fntInitial;
        PresetColors << lngColor;
        return ScriptedPlatform::ShowFontAndColor(fntInitial, lngColor, lngFlags, blnCancelError);
    }
    QList<qint32> FontFlags;
    QList<QFont> PresetFonts;
    QList<qint32> PresetColors;
};

} // namespace OptionsTest
