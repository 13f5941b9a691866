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

QString KeptItemRows::TypeName(qint16 intTypeID, QString& strErrorMessage) {
    DropWhenChanged();
    const auto kept = m_typeNames.constFind(intTypeID);
    if (kept != m_typeNames.constEnd()) {
        strErrorMessage.clear();
        return kept.value();
    }
    QString strTypeName;
    DataAccess::Instance().GetServiceItemTypeName(intTypeID, strErrorMessage, strTypeName);
    if (strErrorMessage.isEmpty())
        m_typeNames.insert(intTypeID, strTypeName);
    return strTypeName;
}

void KeptItemRows::DropWhenChanged() {
    const QString strStamp = DatabaseChangeStamp();
    if (strStamp == m_strStamp)
        return;
    m_rows.clear();
    m_typeNames.clear();
    m_strStamp = strStamp;
}
