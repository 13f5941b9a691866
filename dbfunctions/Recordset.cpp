#include "Recordset.h"

#include "TraceLog.h"

namespace {
// Spellings remembered at most: callers use a handful; a caller that makes up names by the
// thousand starts the memory afresh.
constexpr qsizetype kMaxLookups = 256;
} // namespace

Recordset::Recordset(QList<Column> columns, const QList<QVariantList>& rows)
    : m_columns(std::move(columns)), m_rowCount(rows.size()) {
    m_values.reserve(m_rowCount * m_columns.size());
    for (const QVariantList& row : rows)
        for (qsizetype i = 0; i < m_columns.size(); ++i)
            m_values.append(row.value(i));
    IndexColumns();
}

Recordset::Recordset(QList<Column> columns, QVariantList values, QByteArray texts)
    : m_columns(std::move(columns)), m_values(std::move(values)), m_texts(std::move(texts)),
      m_rowCount(m_columns.isEmpty() ? 0 : m_values.size() / m_columns.size()) {
    m_values.resize(m_rowCount * m_columns.size());
    IndexColumns();
}

// Each UTF-16 unit folded as QString::compare(..., Qt::CaseInsensitive) folds it (a low
// surrogate together with the high one before it), written as two units so that the key of a
// folded code point beyond 0xFFFF cannot meet another.
QString Recordset::CaseKey(QStringView text) {
    QString key(text.size() * 2, Qt::Uninitialized);
    QChar* out = key.data();
    char16_t last = 0;
    for (const QChar unit : text) {
        char32_t code = unit.unicode();
        if (QChar::isLowSurrogate(code) && QChar::isHighSurrogate(last))
            code = QChar::surrogateToUcs4(last, unit.unicode());
        last = unit.unicode();
        const char32_t folded = QChar::toCaseFolded(code);
        *out++ = QChar(static_cast<char16_t>(folded >> 16));
        *out++ = QChar(static_cast<char16_t>(folded & 0xFFFF));
    }
    return key;
}

void Recordset::IndexColumns() {
    m_converted.resize(m_columns.size());
    for (qsizetype i = 0; i < m_columns.size(); ++i) {
        if (m_columns[i].convert)
            m_converted[i].resize(m_rowCount);
        const QString name = CaseKey(m_columns[i].name);
        if (!m_byName.contains(name))
            m_byName.insert(name, static_cast<qint32>(i));
        const std::pair<QString, QString> tableName{CaseKey(m_columns[i].table), name};
        if (!m_byTableName.contains(tableName))
            m_byTableName.insert(tableName, static_cast<qint32>(i));
    }
}

void Recordset::MoveNext() {
    if (m_current < m_rowCount)
        ++m_current;
}

void Recordset::MovePrevious() {
    if (m_current >= 0)
        --m_current;
}

qint32 Recordset::FieldIndex(const QString& strName) const {
    const auto known = m_lookups.constFind(strName);
    if (known != m_lookups.cend())
        return known.value();
    const qint32 index = FindField(strName);
    if (m_lookups.size() >= kMaxLookups)
        m_lookups.clear();
    m_lookups.insert(strName, index);
    return index;
}

// "Table.Name" matches a column of that table and name; "Name" the first column of that name.
qint32 Recordset::FindField(const QString& strName) const {
    const qsizetype dot = strName.lastIndexOf(QLatin1Char('.'));
    const QString table = dot >= 0 ? strName.left(dot).trimmed() : QString();
    QString name = strName.mid(dot + 1).trimmed();
    if (name.startsWith(QLatin1Char('[')) && name.endsWith(QLatin1Char(']')))
        name = name.mid(1, name.size() - 2);
    if (table.isEmpty())
        return m_byName.value(CaseKey(name), -1);
    const auto found = m_byTableName.constFind({CaseKey(table), CaseKey(name)});
    if (found != m_byTableName.cend())
        return found.value();
    // A prefix that names no table of the row (a caller's spelling such as "Keywords." for
    // KeyWords) still finds a field of that name.
    return FindField(name);
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
    if (m_editing) {
        const auto changed = m_changes.constFind(m_columns[index].name.toLower());
        if (changed != m_changes.cend())
            return changed.value();
    }
    return Value(m_current, index);
}

QVariant Recordset::Value(qsizetype row, qint32 column) const {
    const qsizetype at = row * m_columns.size() + column;
    static const int kStoredText = qMetaTypeId<StoredText>();
    if (m_values.at(at).typeId() == kStoredText) {
        const StoredText text = *static_cast<const StoredText*>(m_values.at(at).constData());
        m_values[at] = QString::fromUtf8(m_texts.constData() + text.offset, text.length);
    }
    const Column& info = m_columns.at(column);
    if (!info.convert || m_converted.at(column).testBit(row))
        return m_values.at(at);
    QVariant& value = m_values[at];
    value = info.convert(value);
    m_converted[column].setBit(row);
    return value;
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
    for (auto it = m_changes.cbegin(); it != m_changes.cend(); ++it) {
        const qint32 index = FieldIndex(it.key());
        m_values[m_current * m_columns.size() + index] = it.value();
        if (m_columns[index].convert)
            m_converted[index].setBit(m_current);
    }
    m_editing = false;
    m_changes.clear();
    m_lastError.clear();
    return true;
}

void Recordset::CancelUpdate() {
    m_editing = false;
    m_changes.clear();
}
