#include "DataAccess.h"

#include "DataAccessCore.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

// The one options row, which callers change in place with Edit, SetField and Update; the
// lists that the options screen offers; the copy of the church logo.

using P = DataAccessPrivate;

namespace {

bool WriteOptions(const QVariantMap& changes, QString& strErrorMessage) {
    if (changes.isEmpty())
        return true;
    const QStringList known = P::ColumnsOf(QStringLiteral("Options"));
    QStringList assignments;
    QVariantList values;
    for (auto it = changes.cbegin(); it != changes.cend(); ++it) {
        if (!known.contains(it.key()) || it.key() == QLatin1String("OptionsID")) {
            P::Fail(strErrorMessage, "GetOptions",
                    QStringLiteral("'%1' is not an option.").arg(it.key()));
            return false;
        }
        QVariant value = it.value();
        if (value.typeId() == QMetaType::Bool)
            value = value.toBool() ? 1 : 0;
        else if (value.typeId() == QMetaType::QDateTime)
            value = value.toDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
        assignments << QStringLiteral("\"%1\" = ?").arg(it.key());
        values << value;
    }
    return P::Exec(QStringLiteral("UPDATE Options SET %1 WHERE OptionsID = 1")
                       .arg(assignments.join(QStringLiteral(", "))),
                   values, strErrorMessage, "GetOptions");
}

} // namespace

void DataAccess::GetOptions(QString& strErrorMessage, std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    rs.reset();
    // The row is part of every database; should it be missing, it comes back with defaults.
    if (!P::Exec(QStringLiteral("INSERT OR IGNORE INTO Options (OptionsID) VALUES (1)"), {},
                 strErrorMessage, "GetOptions"))
        return;
    if (!P::Select(QStringLiteral("SELECT %1 FROM Options o WHERE o.OptionsID = 1")
                       .arg(P::Columns("o", "Options", P::ColumnsOf(QStringLiteral("Options")))),
                   {}, strErrorMessage, "GetOptions", rs))
        return;
    rs->SetWriter(WriteOptions);
}

// ---- Lists of the options screen and the church logo --------------------------------------

qint32 DataAccess::TransitionDuration(const QVariant& varSpeed) {
    bool ok = false;
    const qint32 speed = varSpeed.toString().trimmed().toInt(&ok);
    if (ok && speed == speedSlow)
        return 1000;
    if (ok && speed == speedFast)
        return 300;
    return 600;
}

void DataAccess::FillTransitionCombos(QList<ListEntry>& Transitions, QList<ListEntry>& Speeds,
                                      QString& strErrorMessage) {
    strErrorMessage.clear();
    Transitions = {{QStringLiteral("Cut (no transition)"), transCut},
                   {QStringLiteral("Fade"), transFade},
                   {QStringLiteral("Dissolve through black"), transDissolveThroughBlack},
                   {QStringLiteral("Slide left"), transSlideLeft},
                   {QStringLiteral("Slide right"), transSlideRight},
                   {QStringLiteral("Slide up"), transSlideUp},
                   {QStringLiteral("Slide down"), transSlideDown},
                   {QStringLiteral("Wipe"), transWipe}};
    Speeds = {{QStringLiteral("Slow"), speedSlow},
              {QStringLiteral("Medium"), speedMedium},
              {QStringLiteral("Fast"), speedFast}};
}

void DataAccess::FillBackgroundImageCombo(QList<ListEntry>& BackgroundImages,
                                          QString& strErrorMessage) {
    strErrorMessage.clear();
    BackgroundImages.clear();
    std::unique_ptr<Recordset> rs;
    if (!P::Select(QStringLiteral("SELECT s.ServiceItemID AS \"ServiceItemID\", "
                                  "s.ServiceItemDescription AS \"ServiceItemDescription\" FROM "
                                  "ServiceItems s WHERE s.ServiceItemTypeID IN (4, 5) ORDER BY "
                                  "s.ServiceItemDescription COLLATE JETTEXT, s.ServiceItemID"),
                   {}, strErrorMessage, "FillBackgroundImageCombo", rs))
        return;
    BackgroundImages.append({QStringLiteral("(None)"), 0});
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
        QString description =
            P::ToDisplay(rs->Fields(QStringLiteral("ServiceItemDescription")).toString()).trimmed();
        if (description.isEmpty())
            description = QStringLiteral("(No Description)");
        BackgroundImages.append({description, rs->Fields(QStringLiteral("ServiceItemID")).toInt()});
    }
}

QString DataAccess::ChurchLogoName(const QString& strFileName) {
    return QStringLiteral("ChurchLogo.") + strFileName.mid(strFileName.lastIndexOf('.') + 1);
}

void DataAccess::CopyChurchLogo(const QString& strFileName, QString& strErrorMessage) {
    strErrorMessage.clear();
    const QString source = QDir::fromNativeSeparators(strFileName);
    const QFileInfo info(source);
    if (!info.isFile()) {
        P::Fail(strErrorMessage, "CopyChurchLogo",
                QStringLiteral("The file %1 does not exist.").arg(strFileName));
        return;
    }
    if (!QImageReader(source).canRead()) {
        P::Fail(strErrorMessage, "CopyChurchLogo",
                QStringLiteral("The file %1 is not a picture that Corvantis can show.")
                    .arg(strFileName));
        return;
    }
    QString folder;
    GetDataFolder(folder);
    const QString target = folder + ChurchLogoName(info.fileName());
    if (QFileInfo(target).canonicalFilePath() == info.canonicalFilePath())
        return; // the copy itself was chosen
    // Copied beside the old logo first, so that a failed copy leaves the old one in place.
    const QString partial = target + QStringLiteral(".part");
    QFile::remove(partial);
    if (!QFile::copy(source, partial)) {
        P::Fail(strErrorMessage, "CopyChurchLogo",
                QStringLiteral("The logo could not be copied to %1.").arg(folder));
        return;
    }
    QFile::remove(target);
    if (!QFile::rename(partial, target)) {
        QFile::remove(partial);
        P::Fail(strErrorMessage, "CopyChurchLogo",
                QStringLiteral("The logo could not be copied to %1.").arg(target));
    }
}
