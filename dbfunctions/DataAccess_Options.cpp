#include "DataAccess.h"

#include "DataAccessCore.h"

#include <QDateTime>

// The one options row, which callers change in place with Edit, SetField and Update.

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
