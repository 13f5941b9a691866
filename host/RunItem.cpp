#include "RunItem.h"

#include "DataAccess.h"
#include "PresentationCache.h"
#include "TraceLog.h"
#include "foundations/PdfSlides.h"

namespace {

QString decoded(const QVariant& value) {
    QString text = value.toString();
    if (text.contains(QStringLiteral("@@"))) {
        QString err;
        DataAccess::Instance().DecodeStoredText(value.toString(), err, text);
    }
    return text;
}

QString where(qint32 id) {
    return QStringLiteral("ServiceItemID = %1").arg(id);
}

void loadParts(RunItem& item) {
    QString err;
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetSongSequence(item.serviceItemId, err, rs);
    if (!err.isEmpty() || !rs)
        return;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
        item.parts.append({decoded(rs->Fields(QStringLiteral("VerseName"))),
                           decoded(rs->Fields(QStringLiteral("VerseText"))),
                           rs->Fields(QStringLiteral("IsChorus")).toBool()});
}

void loadPoints(RunItem& item) {
    QString err;
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetPoints(where(item.serviceItemId), 4, err, rs);
    if (!err.isEmpty() || !rs)
        return;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
        item.points.append({rs->Fields(QStringLiteral("PointKey")).toString(),
                            rs->Fields(QStringLiteral("ParentPointKey")).toString(),
                            decoded(rs->Fields(QStringLiteral("PointText")))});
}

void loadBackgrounds(RunItem& item) {
    QString err;
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetServiceItemImages(item.serviceItemId, err, rs);
    if (!err.isEmpty() || !rs)
        return;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
        QString path, pathErr;
        DataAccess::Instance().GetServiceItemFileName(
            rs->Fields(QStringLiteral("ImageServiceItemID")).toInt(), pathErr, path);
        if (pathErr.isEmpty() && !path.isEmpty())
            item.backgrounds << path;
    }
}

// A presentation runs from the PDF of its slides, converted the first time it runs (or
// is shown in the editor) and kept.
void loadSlides(RunItem& item, RunItem::Slides how) {
    if (how == RunItem::Slides::KeptOnly) {
        const QString pdf = PresentationCache::FindPdf(item.filePath);
        if (pdf.isEmpty())
            item.slidesPending = true;
        else
            item.TakeSlides(pdf, QString());
        return;
    }
    QString err;
    const QString pdf = PresentationCache::PdfFor(item.filePath, err);
    item.TakeSlides(pdf, err);
}

void readFields(const Recordset& rs, RunItem& item) {
    item.typeId = static_cast<qint16>(rs.Fields(QStringLiteral("ServiceItemTypeID")).toInt());
    item.description = decoded(rs.Fields(QStringLiteral("ServiceItemDescription")));
    item.source = decoded(rs.Fields(QStringLiteral("ServiceItemSource")));
    item.copyright = decoded(rs.Fields(QStringLiteral("ServiceItemCopyrightDetails")));
    item.location = decoded(rs.Fields(QStringLiteral("ServiceItemOriginalLocation")));
    item.hideDetails = rs.Fields(QStringLiteral("HideSIDetails")).toBool();
    item.textViewMode = static_cast<qint16>(rs.Fields(QStringLiteral("TextViewMode")).toInt());
    const qint16 lines = static_cast<qint16>(rs.Fields(QStringLiteral("LinesAtATime")).toInt());
    item.linesAtATime = lines > 0 ? lines : 2;
    item.runAsPointsList = rs.Fields(QStringLiteral("RunAsPointsList")).toBool();
    item.revealSubPointsOneByOne = rs.Fields(QStringLiteral("RevealSubPointsOneByOne")).toBool();
    item.secondsToRun = rs.Fields(QStringLiteral("SecondsToRun")).toInt();
    item.changeImageEveryXSeconds = rs.Fields(QStringLiteral("ChangeImageEveryXSeconds")).toInt();
}

} // namespace

// A presentation that cannot be converted runs as an empty slide; why goes to the trace, not
// to the projector.
bool RunItem::TakeSlides(const QString& strPdf, const QString& strErrorMessage) {
    slidesPending = false;
    QString err = strErrorMessage;
    PdfSlides slides;
    if (err.isEmpty())
        slides.Open(strPdf, err);
    if (!err.isEmpty()) {
        TraceLog::Instance().WriteErrorLine(
            QStringLiteral("Corvantis:RunItem:Load: the slides of service item %1 cannot be "
                           "shown: %2")
                .arg(serviceItemId)
                .arg(err));
        return false;
    }
    slidesPdf = strPdf;
    slideCount = slides.Count();
    return slideCount > 0;
}

bool RunItem::Load(qint32 lngServiceItemID, RunItem& item, QString& strErrorMessage,
                   Slides slides) {
    item = RunItem();
    item.serviceItemId = lngServiceItemID;
    if (item.IsBlank())
        return true;
    DataAccess& da = DataAccess::Instance();
    std::unique_ptr<Recordset> rs;
    da.GetServiceItems(where(lngServiceItemID), 4, strErrorMessage, rs);
    if (!strErrorMessage.isEmpty())
        return false;
    if (!rs || rs->RecordCount() == 0) {
        strErrorMessage =
            QStringLiteral("Service item %1 does not exist in the database").arg(lngServiceItemID);
        return false;
    }
    rs->MoveFirst();
    readFields(*rs, item);
    QString err;
    da.GetServiceItemFileName(lngServiceItemID, err, item.filePath);
    if (item.IsPresentation() && PresentationCache::IsPresentation(item.filePath))
        loadSlides(item, slides);
    // A presentation waiting for its slides shows nothing of its own meanwhile.
    if (!item.IsPicture() && item.typeId != 10 && item.slideCount == 0 && !item.slidesPending) {
        bool hasVerses = false;
        da.ServiceItemHasVerses(lngServiceItemID, err, hasVerses);
        if (hasVerses)
            loadParts(item);
        loadPoints(item);
        QString textErr, text;
        da.GetServiceItemText(lngServiceItemID, textErr, text);
        item.text = text.contains(QStringLiteral("@@")) ? decoded(text) : text;
    }
    loadBackgrounds(item);
    return true;
}
