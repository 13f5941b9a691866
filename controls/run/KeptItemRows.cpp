#include "run/KeptItemRows.h"

#include "ChangeStamps.h"
#include "DataAccess.h"
#include "Recordset.h"
#include "foundations/VBRuntime.h"

std::shared_ptr<const Recordset> KeptItemRows::Row(qint32 lngSIID, QString& strErrorMessage) {
    DropWhenChanged();
    const auto kept = m_rows.constFind(lngSIID);
    if (kept != m_rows.constEnd()) {
        strErrorMessage.clear();
        return kept.value();
    }
    std::unique_ptr<Recordset> rs;
    DataAccess::Instance().GetServiceItems(QStringLiteral("ServiceItemID = ") + VB::CStr(lngSIID),
                                           4, strErrorMessage, rs);
    std::shared_ptr<const Recordset> row(std::move(rs));
    if (row && strErrorMessage.isEmpty())
        m_rows.insert(lngSIID, row);
    return row;
}

namespace {

// The answer kept under key, or the one read now (kept when the read did not fail).
template <class Key, class Value, class Read>
Value KeptOrRead(QHash<Key, Value>& kept, Key key, QString& strErrorMessage, Read read) {
    const auto found = kept.constFind(key);
    if (found != kept.constEnd()) {
        strErrorMessage.clear();
        return found.value();
    }
    Value value{};
    read(value);
    if (strErrorMessage.isEmpty())
        kept.insert(key, value);
    return value;
}

} // namespace

QString KeptItemRows::TypeName(qint16 intTypeID, QString& strErrorMessage) {
    DropWhenChanged();
    return KeptOrRead(m_typeNames, intTypeID, strErrorMessage, [&](QString& strTypeName) {
        DataAccess::Instance().GetServiceItemTypeName(intTypeID, strErrorMessage, strTypeName);
    });
}

bool KeptItemRows::HasVerses(qint32 lngSIID, QString& strErrorMessage) {
    DropWhenChanged();
    return KeptOrRead(m_hasVerses, lngSIID, strErrorMessage, [&](bool& blnHasVerses) {
        DataAccess::Instance().ServiceItemHasVerses(lngSIID, strErrorMessage, blnHasVerses);
    });
}

std::shared_ptr<const KeptItemRows::SongParts> KeptItemRows::Sequence(qint32 lngSIID) {
    DropWhenChanged();
    const auto kept = m_sequences.constFind(lngSIID);
    if (kept != m_sequences.constEnd())
        return kept.value();
    DataAccess& da = DataAccess::Instance();
    QString strErrorMessage;
    std::unique_ptr<Recordset> rs;
    da.GetSongSequence(lngSIID, strErrorMessage, rs);
    if (!rs)
        return nullptr;
    auto parts = std::make_shared<SongParts>();
    bool blnWhole = strErrorMessage.isEmpty();
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
        SongPart part;
        const QVariant varChorus = rs->Fields(QStringLiteral("IsChorus"));
        part.blnIsChorus = !varChorus.isNull() && VB::CBool(varChorus);
        part.strName = VB::Text(rs->Fields(QStringLiteral("VerseName")));
        part.varVerseID = rs->Fields(QStringLiteral("Verses.VerseID"));
        QString strFirstLineError;
        da.GetVerseFirstLine(VB::CLng(part.varVerseID), strFirstLineError, part.strFirstLine);
        blnWhole = blnWhole && strFirstLineError.isEmpty();
        parts->append(part);
    }
    if (blnWhole)
        m_sequences.insert(lngSIID, parts);
    return parts;
}

void KeptItemRows::DropWhenChanged() {
    const QString strStamp = DatabaseChangeStamp();
    if (strStamp == m_strStamp)
        return;
    m_rows.clear();
    m_typeNames.clear();
    m_hasVerses.clear();
    m_sequences.clear();
    m_strStamp = strStamp;
}
