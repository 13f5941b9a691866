#include "TemplateSheet.h"

#include "DataAccessCore.h"
#include "Recordset.h"

#include <QDateTime>
#include <QFileInfo>

#include <algorithm>

// The values a sheet is filled with, read from the store. Stored texts show with their
// apostrophes; a Null shows as nothing.

using P = DataAccessPrivate;

namespace TemplateSheet {

const QList<Group>& Vocabulary() {
    static const QList<Group> groups = {
        {"The church (from the options)",
         {{"ChurchName", "the church's name"},
          {"ChurchAddress", "the lines of the church's address, one under the other"},
          {"ChurchPastorName", "the pastor's name"},
          {"ChurchPhone", "the church's telephone numbers"},
          {"ChurchEmail", "the church's e-mail address"},
          {"ChurchWebSite", "the church's web site"},
          {"ChurchMissionStatement", "the church's mission statement"}}},
        {"A service (on a service template)",
         {{"ServiceName", "the name of the service"},
          {"ServiceTheme", "its theme"},
          {"ServiceType", "its type"},
          {"ServiceDate", "the date it was last delivered"},
          {"ServiceProvider", "who provides it"},
          {"ServiceNotes", "its notes"}}},
        {"Each row of a service (put them in one table row, which is repeated for every row)",
         {{"RowNumber", "the row's number, from 1"},
          {"RowTitle", "the title of the row's service item"},
          {"RowType", "the kind of service item"},
          {"RowLength", "the row's length"},
          {"RowSource", "the item's source"},
          {"RowNotes", "the item's notes"}}},
        {"A service item (on a service item template)",
         {{"ItemTitle", "the title of the service item"},
          {"ItemType", "the kind of service item"},
          {"ItemWords", "its words: the text, or a song's verses and choruses in the order sung"},
          {"ItemSource", "its source"},
          {"ItemCopyright", "its copyright details"},
          {"ItemNotes", "its notes"}}},
    };
    return groups;
}

const Group& RowFields() {
    return Vocabulary()[2];
}

bool IsRowField(const QString& strName) {
    const QList<Field>& fields = RowFields().fields;
    return std::any_of(fields.cbegin(), fields.cend(),
                       [&](const Field& f) { return strName == QLatin1String(f.name); });
}

namespace {
QString Text(const Recordset& rs, const char* name) {
    const QVariant value = rs.Fields(QString::fromLatin1(name));
    return value.isNull() ? QString() : P::ToDisplay(value.toString());
}

QString JoinFilled(const QStringList& parts, const QString& strSeparator) {
    QStringList filled;
    for (const QString& part : parts)
        if (!part.trimmed().isEmpty())
            filled << part;
    return filled.join(strSeparator);
}

QString LogoFile(const QString& strStored) {
    if (strStored.isEmpty())
        return QString();
    QString strFolder;
    DataAccess::Instance().GetDataFolder(strFolder);
    const QString strCopy = strFolder + DataAccess::ChurchLogoName(strStored);
    if (QFileInfo(strCopy).isFile())
        return strCopy;
    return QFileInfo(strStored).isFile() ? QFileInfo(strStored).absoluteFilePath() : QString();
}

bool ReadService(qint32 lngID, Sheet& sheet, QString& strError) {
    std::unique_ptr<Recordset> rs;
    if (!P::Select(QStringLiteral("SELECT ServiceName, ServiceTheme, ServiceType, ServiceProvider, "
                                  "ServiceNotes, ServiceDateLastDelivered FROM Services WHERE "
                                  "ServiceID = ?"),
                   {lngID}, strError, "FillTemplate", rs))
        return false;
    if (rs->RecordCount() == 0) {
        strError = QStringLiteral("Service %1 does not exist.").arg(lngID);
        return false;
    }
    rs->MoveFirst();
    for (const char* name :
         {"ServiceName", "ServiceTheme", "ServiceType", "ServiceProvider", "ServiceNotes"})
        sheet.fields.insert(QString::fromLatin1(name), Text(*rs, name));
    const QVariant varDate = rs->Fields(QStringLiteral("ServiceDateLastDelivered"));
    sheet.fields.insert(QStringLiteral("ServiceDate"),
                        varDate.isNull()
                            ? QString()
                            : varDate.toDateTime().toString(QStringLiteral("dddd d MMMM yyyy")));
    if (!P::Select(QStringLiteral("SELECT sc.Position AS Position, si.ServiceItemDescription AS "
                                  "Title, t.ServiceItemTypeName AS Type, sc.Length AS Length, "
                                  "si.ServiceItemSource AS Source, si.ServiceItemNotes AS Notes "
                                  "FROM ServiceContents sc JOIN ServiceItems si ON "
                                  "si.ServiceItemID = sc.ServiceItemID LEFT JOIN ServiceItemTypes "
                                  "t ON t.ServiceItemTypeID = si.ServiceItemTypeID WHERE "
                                  "sc.ServiceID = ? ORDER BY sc.Position"),
                   {lngID}, strError, "FillTemplate", rs))
        return false;
    sheet.hasRows = true;
    qint32 lngNumber = 0;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
        sheet.rows.append({{QStringLiteral("RowNumber"), QString::number(++lngNumber)},
                           {QStringLiteral("RowTitle"), Text(*rs, "Title")},
                           {QStringLiteral("RowType"), Text(*rs, "Type")},
                           {QStringLiteral("RowLength"), Text(*rs, "Length")},
                           {QStringLiteral("RowSource"), Text(*rs, "Source")},
                           {QStringLiteral("RowNotes"), Text(*rs, "Notes")}});
    }
    return true;
}

// A song's words are its parts in the order sung (or as stored when no order is kept), one
// blank line between parts.
QString SongWords(qint32 lngID, QString& strError) {
    std::unique_ptr<Recordset> rs;
    if (!P::Select(QStringLiteral("SELECT v.VerseText AS Words FROM SongSequence q JOIN Verses v "
                                  "ON v.VerseID = q.VerseID WHERE q.ServiceItemID = ? ORDER BY "
                                  "q.Position"),
                   {lngID}, strError, "FillTemplate", rs))
        return QString();
    if (rs->RecordCount() == 0 &&
        !P::Select(QStringLiteral("SELECT VerseText AS Words FROM Verses WHERE ServiceItemID = ? "
                                  "ORDER BY VerseID"),
                   {lngID}, strError, "FillTemplate", rs))
        return QString();
    QStringList parts;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
        parts << Text(*rs, "Words");
    return JoinFilled(parts, QStringLiteral("\n\n"));
}

bool ReadItem(qint32 lngID, Sheet& sheet, QString& strError) {
    std::unique_ptr<Recordset> rs;
    if (!P::Select(QStringLiteral("SELECT si.ServiceItemDescription AS Title, "
                                  "t.ServiceItemTypeName AS Type, si.ServiceItemContent AS Words, "
                                  "si.ServiceItemSource AS Source, si.ServiceItemCopyrightDetails "
                                  "AS Copyright, si.ServiceItemNotes AS Notes FROM ServiceItems si "
                                  "LEFT JOIN ServiceItemTypes t ON t.ServiceItemTypeID = "
                                  "si.ServiceItemTypeID WHERE si.ServiceItemID = ?"),
                   {lngID}, strError, "FillTemplate", rs))
        return false;
    if (rs->RecordCount() == 0) {
        strError = QStringLiteral("Service item %1 does not exist.").arg(lngID);
        return false;
    }
    rs->MoveFirst();
    QString strWords = Text(*rs, "Words");
    if (strWords.trimmed().isEmpty())
        strWords = SongWords(lngID, strError);
    sheet.fields.insert(QStringLiteral("ItemTitle"), Text(*rs, "Title"));
    sheet.fields.insert(QStringLiteral("ItemType"), Text(*rs, "Type"));
    sheet.fields.insert(QStringLiteral("ItemWords"), strWords);
    sheet.fields.insert(QStringLiteral("ItemSource"), Text(*rs, "Source"));
    sheet.fields.insert(QStringLiteral("ItemCopyright"), Text(*rs, "Copyright"));
    sheet.fields.insert(QStringLiteral("ItemNotes"), Text(*rs, "Notes"));
    return strError.isEmpty();
}
} // namespace

bool ReadChurch(Sheet& sheet, QString& strError) {
    std::unique_ptr<Recordset> rs;
    if (!P::Select(QStringLiteral("SELECT * FROM Options LIMIT 1"), {}, strError, "FillTemplate",
                   rs))
        return false;
    if (rs->RecordCount() == 0)
        return true;
    rs->MoveFirst();
    for (const char* name : {"ChurchName", "ChurchPastorName", "ChurchEmail", "ChurchWebSite",
                             "ChurchMissionStatement"})
        sheet.fields.insert(QString::fromLatin1(name), Text(*rs, name));
    sheet.fields.insert(QStringLiteral("ChurchAddress"),
                        JoinFilled({Text(*rs, "ChurchAddress1"), Text(*rs, "ChurchAddress2"),
                                    Text(*rs, "ChurchAddress3"), Text(*rs, "ChurchAddress4")},
                                   QStringLiteral("\n")));
    sheet.fields.insert(
        QStringLiteral("ChurchPhone"),
        JoinFilled({Text(*rs, "ChurchPhone1"), Text(*rs, "ChurchPhone2")}, QStringLiteral(" / ")));
    sheet.logoFile = LogoFile(Text(*rs, "ChurchLogoFilename"));
    return true;
}

bool Read(TemplateFill::Subject subject, qint32 lngID, Sheet& sheet, QString& strError) {
    if (!P::Ready(strError, "FillTemplate") || !ReadChurch(sheet, strError))
        return false;
    return subject == TemplateFill::Subject::Service ? ReadService(lngID, sheet, strError)
                                                     : ReadItem(lngID, sheet, strError);
}

} // namespace TemplateSheet
