#include "Recordset.h"

#include "TraceLog.h"

Recordset::Recordset(QList<Column> columns, QList<QVariantList> rows)
    : m_columns(std::move(columns)), m_rows(std::move(rows)) {}

void Recordset::MoveNext() {
    if (m_current < m_rows.size())
        ++m_current;
}

void Recordset::MovePrevious() {
    if (m_current >= 0)
        --m_current;
}

// "Table.Name" matches a column of that table and name; "Name" the first column of that name.
qint32 Recordset::FieldIndex(const QString& strName) const {
    const qsizetype dot = strName.lastIndexOf(QLatin1Char('.'));
    const QString table = dot >= 0 ? strName.left(dot).trimmed() : QString();
    QString name = strName.mid(dot + 1).trimmed();
    if (name.startsWith(QLatin1Char('[')) && name.endsWith(QLatin1Char(']')))
        name = name.mid(1, name.size() - 2);
    for (qsizetype i = 0; i < m_columns.size(); ++i) {
        const Column& column = m_columns[i];
        if (column.name.compare(name, Qt::CaseInsensitive) != 0)
            continue;
        if (table.isEmpty() || column.table.compare(table, Qt::CaseInsensitive) == 0)
            return static_cast<qint32>(i);
    }
    // A prefix that names no table of the row (a caller's spelling such as "Keywords." for
    // KeyWords) still finds a field of that name.
    if (!table.isEmpty())
        return FieldIndex(name);
    return -1;
}

QVariant Recordset::Fields(const QString& strName) const {
    const qint32 index = FieldIndex(strName);
    if (index < 0) {
        TraceLog::Instance().WriteErrorLine(
            QStringLiteral(
                "QVLTDBFUNCTIONS:Recordset:Fields: Item not found in this collection: ") +
            strName);
        return QVariant();
    }
    if (Eof() || m_current < 0) {
        TraceLog::Instance().WriteErrorLine(
            QStringLiteral("QVLTDBFUNCTIONS:Recordset:Fields: No current record: ") + strName);
        return QVariant();
    }
    const QString key = m_columns[index].name.toLower();
    if (m_editing && m_changes.contains(key))
        return m_changes.value(key);
    return m_rows[m_current].value(index);
}

QStringList Recordset::FieldNames() const {
    QStringList names;
    for (const Column& column : m_columns)
        names << (column.table.isEmpty() ? column.name : column.table + '.' + column.name);
    return names;
}

bool Recordset::Edit() {
    if (!m_writer || Eof() || m_current < 0) {
        m_lastError = QStringLiteral("This recordset cannot be edited.");
        return false;
    }
    m_editing = true;
    m_changes.clear();
    return true;
}

bool Recordset::SetField(const QString& strName, const QVariant& value) {
    if (!m_editing) {
        m_lastError = QStringLiteral("Update or CancelUpdate without AddNew or Edit.");
        TraceLog::Instance().WriteErrorLine(QStringLiteral("QVLTDBFUNCTIONS:Recordset:SetField: ") +
                                            m_lastError);
        return false;
    }
    const qint32 index = FieldIndex(strName);
    if (index < 0) {
        m_lastError = QStringLiteral("Item not found in this collection: ") + strName;
        TraceLog::Instance().WriteErrorLine(QStringLiteral("QVLTDBFUNCTIONS:Recordset:SetField: ") +
                                            m_lastError);
        return false;
    }
    m_changes.insert(m_columns[index].name.toLower(), value);
    return true;
}

bool Recordset::Update() {
    if (!m_editing) {
        m_lastError = QStringLiteral("Update or CancelUpdate without AddNew or Edit.");
        return false;
    }
    QVariantMap changes;
    for (auto it = m_changes.cbegin(); it != m_changes.cend(); ++it)
        changes.insert(m_columns[FieldIndex(it.key())].name, it.value());
    QString error;
    if (!m_writer(changes, error)) {
        m_lastError = error;
        TraceLog::Instance().WriteErrorLine(QStringLiteral("QVLTDBFUNCTIONS:Recordset:Update: ") +
                                            error);
        return false;
    }
    for (auto it = m_changes.cbegin(); it != m_changes.cend(); ++it)
        m_rows[m_current][FieldIndex(it.key())] = it.value();
    m_editing = false;
    m_changes.clear();
    m_lastError.clear();
    return true;
}

void Recordset::CancelUpdate() {
    m_editing = false;
    m_changes.clear();
}
