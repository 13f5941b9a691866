#include "RunLook.h"

#include "ChangeStamps.h"
#include "DataAccess.h"
#include "Settings.h"

#include "foundations/VBRuntime.h"
#include <optional>

namespace {

bool flag(const Recordset& rs, const QString& name, bool fallback) {
    const QVariant v = rs.Fields(name);
    return v.isNull() || !v.isValid() ? fallback : v.toBool();
}

// DefaultBackgroundImage: the id of a picture item, or the path of a file.
QString backgroundPath(const QVariant& value) {
    if (value.isNull() || !value.isValid())
        return QString();
    if (VB::IsNumeric(value)) {
        const qint32 id = VB::CLng(value);
        if (id == 0)
            return QString();
        QString err, path;
        DataAccess::Instance().GetServiceItemFileName(id, err, path);
        return err.isEmpty() ? path : QString();
    }
    return value.toString();
}

} // namespace

// RunModeTransType and RunModeTransSpeed; an unknown kind counts as a cut.
void RunLook::ReadTransition(const Recordset& rs, RunLook& look) {
    const QVariant type = rs.Fields(QStringLiteral("RunModeTransType"));
    const qint32 kind = VB::IsNumeric(type) ? VB::CLng(type) : DataAccess::transCut;
    look.transitionType = kind >= DataAccess::transFade && kind <= DataAccess::transWipe
                              ? kind
                              : static_cast<qint32>(DataAccess::transCut);
    look.transitionDuration =
        DataAccess::TransitionDuration(rs.Fields(QStringLiteral("RunModeTransSpeed")));
}

QColor RunLook::FromBgr(qint32 lngColor) {
    return QColor(lngColor & 0xFF, (lngColor >> 8) & 0xFF, (lngColor >> 16) & 0xFF);
}

qint32 RunLook::ToBgr(const QColor& color) {
    return color.red() | (color.green() << 8) | (color.blue() << 16);
}

RunLook RunLook::FromOptions(QString& strErrorMessage) {
    RunLook look;
    look.useTransitions = Settings::GetPrivateProfileString(QStringLiteral("Options"),
                                                            QStringLiteral("UseTransitions"))
                              .trimmed()
                              .compare(QStringLiteral("True"), Qt::CaseInsensitive) == 0;
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetOptions(strErrorMessage, rs);
    if (!strErrorMessage.isEmpty() || !rs || rs->RecordCount() == 0)
        return look;
    rs->MoveFirst();
    const QString name = rs->Fields(QStringLiteral("RunModeFontName")).toString().trimmed();
    if (!name.isEmpty())
        look.fontName = name;
    look.fontBold = flag(*rs, QStringLiteral("RunModeFontBold"), look.fontBold);
    look.fontItalic = flag(*rs, QStringLiteral("RunModeFontItalic"), look.fontItalic);
    const double size = rs->Fields(QStringLiteral("RunModeFontSize")).toDouble();
    if (size > 0)
        look.fontSize = size;
    const QVariant fore = rs->Fields(QStringLiteral("RunModeFontColor"));
    const QVariant back = rs->Fields(QStringLiteral("RunModeBackColor"));
    if (!fore.isNull() && !back.isNull() && fore.toInt() != back.toInt()) {
        look.foreColor = FromBgr(fore.toInt());
        look.backColor = FromBgr(back.toInt());
    }
    look.backgroundPicture = backgroundPath(rs->Fields(QStringLiteral("DefaultBackgroundImage")));
    look.showDescription =
        flag(*rs, QStringLiteral("ShowDescriptionDetailsAtRunTime"), look.showDescription);
    look.showSource = flag(*rs, QStringLiteral("ShowSourceAtRunTime"), look.showSource);
    look.showCopyright =
        flag(*rs, QStringLiteral("ShowCopyrightDetailsAtRunTime"), look.showCopyright);
    look.showLocation =
        flag(*rs, QStringLiteral("ShowLocationDetailsAtRunTime"), look.showLocation);
    const qint16 mode = static_cast<qint16>(rs->Fields(QStringLiteral("PointDisplayMode")).toInt());
    if (mode >= 4 && mode <= 6)
        look.pointDisplayMode = mode;
    look.revealSubPointsOneByOne =
        flag(*rs, QStringLiteral("ShowSubPointsOneByOne"), look.revealSubPointsOneByOne);
    ReadTransition(*rs, look);
    return look;
}

RunLook RunLook::FromOptionsWhenChanged(QString& strErrorMessage) {
    static std::optional<RunLook> kept;
    static QString keptStamp;
    strErrorMessage.clear();
    const QString stamp = DatabaseChangeStamp() + QLatin1Char('/') + SettingsChangeStamp();
    if (kept && stamp == keptStamp)
        return *kept;
    const RunLook look = FromOptions(strErrorMessage);
    if (strErrorMessage.isEmpty()) {
        kept = look;
        keptStamp = stamp;
    } else {
        kept.reset();
    }
    return look;
}
