#pragma once

#include <QBitArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>

// A read cursor over rows that an operation of DataAccess fetched. The rows are a snapshot:
// they are read into memory when the operation runs, so a Recordset stays valid after other
// writes and RecordCount() is exact from the start.
//
// Values: Null is a null QVariant (isNull()), booleans come back as bool, dates as QDateTime
// in local time (made from the stored text the first time the value is read; a text that is no
// date stays a QString), whole numbers as qint64-compatible integers, texts as QString.
//
// Fields(name) finds a field by its name without regard to letter case. A name may carry a table
// prefix ("Verses.VerseID", "ServiceItems.ServiceItemID"); a name without a prefix finds the
// first field of that name. An unknown name, or reading while Eof(), gives an invalid QVariant
// and writes an error line to the trace log. The names are looked up in tables made once per
// recordset, and each spelling a caller uses is remembered, so a look-up costs about the same
// whatever the number of fields.
//
// Only the one row of DataAccess::GetOptions can be changed: Edit(), then SetField() for each
// field, then Update() writes the changed fields to the database.
class Recordset {
public:
    struct Column {
        QString table; // may be empty
        QString name;
        // Turns a stored value of this column into the value Fields() gives, the first time
        // that value is read (none: the stored value as it is). A query converts its dates so:
        // most callers read few of them, and each conversion is costly.
        std::function<QVariant(const QVariant&)> convert = {};
    };
    using Writer = std::function<bool(const QVariantMap& changes, QString& strErrorMessage)>;

    // Rows given one list each; a short row reads as Null in its missing fields.
    Recordset(QList<Column> columns, const QList<QVariantList>& rows);
    // A text value held as the UTF-8 bytes [offset, offset + length) of the recordset's store of
    // texts, and made into a QString the first time it is read: of a large query's rows most
    // values are never read, and each QString made and freed is a large part of its cost.
    struct StoredText {
        qint32 offset = 0;
        qint32 length = 0;
    };

    // Rows given one after the other in one list: values.size() is a multiple of the columns.
    // A value may be a StoredText in texts.
    Recordset(QList<Column> columns, QVariantList values, QByteArray texts = QByteArray());

    qint32 RecordCount() const { return static_cast<qint32>(m_rowCount); }
    void MoveFirst() { m_current = 0; }
    void MoveLast() { m_current = m_rowCount == 0 ? 0 : m_rowCount - 1; }
    void MoveNext();
    void MovePrevious();
    bool Eof() const { return m_current >= m_rowCount; }
    bool Bof() const { return m_current < 0 || m_rowCount == 0; }
    // 0-based position of the current row (Jet's AbsolutePosition).
    qint32 AbsolutePosition() const { return static_cast<qint32>(m_current); }
    // Makes the row at a 0-based position current; a position past the last row is Eof.
    void SetAbsolutePosition(qint32 lngPosition) {
        m_current = lngPosition < 0 ? 0 : static_cast<decltype(m_current)>(lngPosition);
    }

    QVariant Fields(const QString& strName) const;
    bool HasField(const QString& strName) const { return FieldIndex(strName) >= 0; }
    // The field names as "Table.Name" (or "Name" without a table), in column order.
    QStringList FieldNames() const;

    // Editing of an editable row (the options row). Edit() fails on a read-only recordset.
    bool Edit();
    bool SetField(const QString& strName, const QVariant& value);
    bool Update();
    void CancelUpdate();
    bool IsEditable() const { return static_cast<bool>(m_writer); }
    QString LastError() const { return m_lastError; }

    // Used by DataAccess to make a recordset editable.
    void SetWriter(Writer writer) { m_writer = std::move(writer); }

private:
    qint32 FieldIndex(const QString& strName) const;
    qint32 FindField(const QString& strName) const;
    void IndexColumns();
    QVariant Value(qsizetype row, qint32 column) const;
    // A key under which two names are equal exactly when they are equal without regard to case.
    static QString CaseKey(QStringView text);

    QList<Column> m_columns;
    QHash<QString, qint32> m_byName;                          // first column of a name
    QHash<std::pair<QString, QString>, qint32> m_byTableName; // first of a table and name
    mutable QHash<QString, qint32> m_lookups; // the spellings asked for, as they were asked
    // The values row after row. Values of columns with a conversion are converted in place
    // when first read; m_converted marks them (one bit per row, for those columns only).
    mutable QVariantList m_values;
    QByteArray m_texts; // the bytes of the StoredText values
    qsizetype m_rowCount = 0;
    mutable QList<QBitArray> m_converted;
    qsizetype m_current = 0;
    Writer m_writer;
    bool m_editing = false;
    QVariantMap m_changes;
    QString m_lastError;
};
