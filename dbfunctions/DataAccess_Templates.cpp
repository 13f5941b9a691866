#include "DataAccess.h"

#include "DataAccessCore.h"

// Document templates: their properties. Creating and opening their documents is the word
// processor's part (DataAccess_WordProcessor.cpp).

using P = DataAccessPrivate;

void DataAccess::GetTemplates(const QString& strWhereClause, qint16, QString& strErrorMessage,
                              std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    P::SelectWhere(QStringLiteral("SELECT %1 FROM Templates tp")
                       .arg(P::Columns("tp", "Templates",
                                       {"TemplateID", "TemplateDescription", "TemplateOccasion",
                                        "TemplateAuthor", "TemplateNotes", "TemplateDateCreated",
                                        "IsInBuilt", "IsServiceTemplate", "TemplateFilename"})),
                   {{"Templates", "tp"}}, strWhereClause,
                   QStringLiteral("ORDER BY tp.TemplateDateCreated DESC, tp.TemplateID DESC"),
                   strErrorMessage, "GetTemplates", rs);
}

void DataAccess::SaveTemplate(qint32 lngTemplateID, const QString& strDescription,
                              bool blnUserCreated, const QString& strOccasion,
                              const QString& strAuthor, const QString& strNotes,
                              bool blnIsServiceTemplate, QString& strErrorMessage,
                              qint32& lngNewTemplateID) {
    strErrorMessage.clear();
    lngNewTemplateID = 0;
    if (lngTemplateID == 0) {
        AddTemplate(strDescription, strOccasion, strAuthor, strNotes, !blnUserCreated,
                    blnIsServiceTemplate, QString(), strErrorMessage, lngNewTemplateID);
        return;
    }
    QSqlQuery q;
    if (!P::Exec(QStringLiteral("UPDATE Templates SET TemplateDescription = ?, IsInBuilt = ?, "
                                "TemplateOccasion = ?, TemplateAuthor = ?, TemplateNotes = ?, "
                                "IsServiceTemplate = ? WHERE TemplateID = ?"),
                 {P::EmptyToNull(strDescription), blnUserCreated ? 0 : 1,
                  P::EmptyToNull(strOccasion), P::EmptyToNull(strAuthor), P::EmptyToNull(strNotes),
                  blnIsServiceTemplate ? 1 : 0, lngTemplateID},
                 strErrorMessage, "SaveTemplate", &q))
        return;
    if (q.numRowsAffected() == 0) {
        P::Fail(strErrorMessage, "SaveTemplate",
                QStringLiteral("Template %1 does not exist.").arg(lngTemplateID));
        return;
    }
    lngNewTemplateID = lngTemplateID;
}

void DataAccess::AddTemplate(const QString& strDescription, const QString& strOccasion,
                             const QString& strAuthor, const QString& strNotes, bool blnIsInBuilt,
                             bool blnIsServiceTemplate, const QString& strTemplateFilename,
                             QString& strErrorMessage, qint32& lngNewTemplateID) {
    strErrorMessage.clear();
    lngNewTemplateID = 0;
    if (P::Exec(QStringLiteral("INSERT INTO Templates (TemplateDescription, TemplateOccasion, "
                               "TemplateAuthor, TemplateNotes, TemplateDateCreated, IsInBuilt, "
                               "IsServiceTemplate, TemplateFilename) VALUES (?, ?, ?, ?, ?, ?, "
                               "?, ?)"),
                {P::EmptyToNull(strDescription), P::EmptyToNull(strOccasion),
                 P::EmptyToNull(strAuthor), P::EmptyToNull(strNotes), P::Now(),
                 blnIsInBuilt ? 1 : 0, blnIsServiceTemplate ? 1 : 0,
                 P::EmptyToNull(strTemplateFilename)},
                strErrorMessage, "AddTemplate"))
        lngNewTemplateID = P::LastInsertId();
}

void DataAccess::DeleteTemplate(qint32 lngTemplateID, const QVariant&, QString& strErrorMessage,
                                QVariant&) {
    DeleteTemplate(lngTemplateID, strErrorMessage);
}

void DataAccess::DeleteTemplate(qint32 lngTemplateID, QString& strErrorMessage) {
    strErrorMessage.clear();
    P::Exec(QStringLiteral("DELETE FROM Templates WHERE TemplateID = ?"), {lngTemplateID},
            strErrorMessage, "DeleteTemplate");
}

void DataAccess::TemplateShown(qint32 lngTemplateID) {
    QString ignored;
    P::SetState(QStringLiteral("LastShownTemplateID"), lngTemplateID, ignored, "TemplateShown");
}

void DataAccess::GetTemplateOccasions(const QString& strWhere, QString& strErrorMessage,
                                      std::unique_ptr<Recordset>& rs) {
    strErrorMessage.clear();
    const QString notNull = QStringLiteral("TemplateOccasion Is Not Null");
    P::SelectWhere(
        QStringLiteral("SELECT DISTINCT tp.TemplateOccasion AS TemplateOccasion FROM "
                       "Templates tp"),
        {{"Templates", "tp"}},
        strWhere.trimmed().isEmpty() ? notNull
                                     : QStringLiteral("(%1) AND %2").arg(strWhere, notNull),
        QStringLiteral("ORDER BY 1 COLLATE JETTEXT"), strErrorMessage, "GetTemplateOccasions", rs);
}
