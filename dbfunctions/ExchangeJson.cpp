#include "Exchange.h"

#include <QJsonArray>

// Items and services as JSON objects (docs/exchange-format.md). Texts that are Null in the
// database are JSON null, so that they come back as Null.

namespace Exchange {

namespace {

QJsonValue TextValue(const QString& strText) {
    return strText.isNull() ? QJsonValue(QJsonValue::Null) : QJsonValue(strText);
}

QString TextOf(const QJsonValue& value) {
    return value.isString() ? value.toString() : QString();
}

QJsonObject FieldsToJson(const QVariantMap& fields) {
    QJsonObject object;
    for (auto it = fields.cbegin(); it != fields.cend(); ++it)
        object.insert(it.key(), it.value().isValid() && !it.value().isNull()
                                    ? QJsonValue::fromVariant(it.value())
                                    : QJsonValue(QJsonValue::Null));
    return object;
}

// Plain values only: texts, numbers, true and false (stored 1 and 0), null.
bool FieldsFromJson(const QJsonValue& value, QVariantMap& fields, QString& strError) {
    if (!value.isObject()) {
        strError = QStringLiteral("its fields are missing");
        return false;
    }
    const QJsonObject object = value.toObject();
    for (auto it = object.begin(); it != object.end(); ++it) {
        const QJsonValue field = it.value();
        if (field.isString())
            fields.insert(it.key(), field.toString());
        else if (field.isDouble() && field.toDouble() == double(qint64(field.toDouble())))
            fields.insert(it.key(), qint64(field.toDouble()));
        else if (field.isDouble())
            fields.insert(it.key(), field.toDouble());
        else if (field.isBool())
            fields.insert(it.key(), field.toBool() ? 1 : 0);
        else if (field.isNull())
            fields.insert(it.key(), QVariant());
        else {
            strError = QStringLiteral("its field %1 is not a plain value").arg(it.key());
            return false;
        }
    }
    return true;
}

QJsonArray Ids(const QList<qint32>& ids) {
    QJsonArray array;
    for (qint32 id : ids)
        array.append(id);
    return array;
}

QList<qint32> IdsOf(const QJsonValue& value) {
    QList<qint32> ids;
    for (const QJsonValue& id : value.toArray())
        if (id.isDouble())
            ids << id.toInt();
    return ids;
}

QJsonArray Texts(const QStringList& texts) {
    QJsonArray array;
    for (const QString& text : texts)
        array.append(text);
    return array;
}

QStringList TextsOf(const QJsonValue& value) {
    QStringList texts;
    for (const QJsonValue& text : value.toArray())
        if (text.isString())
            texts << text.toString();
    return texts;
}

} // namespace

QJsonObject ToJson(const Item& item) {
    QJsonObject object{{QStringLiteral("id"), item.Id},
                       {QStringLiteral("fields"), FieldsToJson(item.Fields)}};
    if (!item.Keywords.isEmpty())
        object.insert(QStringLiteral("keywords"), Texts(item.Keywords));
    if (!item.Resources.isEmpty())
        object.insert(QStringLiteral("resources"), Texts(item.Resources));
    if (!item.Parts.isEmpty()) {
        QJsonArray parts;
        for (const Part& part : item.Parts)
            parts.append(QJsonObject{{QStringLiteral("name"), TextValue(part.Name)},
                                     {QStringLiteral("text"), TextValue(part.Text)},
                                     {QStringLiteral("chorus"), part.IsChorus}});
        object.insert(QStringLiteral("parts"), parts);
        QJsonArray order;
        for (int index : item.Order)
            order.append(index);
        object.insert(QStringLiteral("order"), order);
    }
    if (!item.Points.isEmpty()) {
        QJsonArray points;
        for (const Point& point : item.Points)
            points.append(QJsonObject{{QStringLiteral("key"), TextValue(point.Key)},
                                      {QStringLiteral("parent"), TextValue(point.ParentKey)},
                                      {QStringLiteral("text"), TextValue(point.Text)},
                                      {QStringLiteral("notes"), TextValue(point.Notes)}});
        object.insert(QStringLiteral("points"), points);
    }
    if (!item.Images.isEmpty())
        object.insert(QStringLiteral("images"), Ids(item.Images));
    if (!item.Props.isEmpty())
        object.insert(QStringLiteral("propBag"), Ids(item.Props));
    if (!item.ContentFile.isEmpty())
        object.insert(QStringLiteral("file"), item.ContentFile);
    if (!item.MusicFile.isEmpty())
        object.insert(QStringLiteral("musicFile"), item.MusicFile);
    if (item.OnlyAsProp)
        object.insert(QStringLiteral("onlyAsProp"), true);
    return object;
}

bool FromJson(const QJsonObject& object, Item& item, QString& strError) {
    item = Item();
    item.Id = object.value(QStringLiteral("id")).toInt();
    if (item.Id <= 0) {
        strError = QStringLiteral("A service item in the file has no id.");
        return false;
    }
    QString why;
    if (!FieldsFromJson(object.value(QStringLiteral("fields")), item.Fields, why)) {
        strError =
            QStringLiteral("Service item %1 of the file cannot be read: %2.").arg(item.Id).arg(why);
        return false;
    }
    item.Keywords = TextsOf(object.value(QStringLiteral("keywords")));
    item.Resources = TextsOf(object.value(QStringLiteral("resources")));
    for (const QJsonValue& value : object.value(QStringLiteral("parts")).toArray()) {
        const QJsonObject part = value.toObject();
        item.Parts.append({TextOf(part.value(QStringLiteral("name"))),
                           TextOf(part.value(QStringLiteral("text"))),
                           part.value(QStringLiteral("chorus")).toBool()});
    }
    for (const QJsonValue& value : object.value(QStringLiteral("order")).toArray())
        if (value.isDouble() && value.toInt() >= 0 && value.toInt() < item.Parts.size())
            item.Order << value.toInt();
    for (const QJsonValue& value : object.value(QStringLiteral("points")).toArray()) {
        const QJsonObject point = value.toObject();
        item.Points.append({TextOf(point.value(QStringLiteral("key"))),
                            TextOf(point.value(QStringLiteral("parent"))),
                            TextOf(point.value(QStringLiteral("text"))),
                            TextOf(point.value(QStringLiteral("notes")))});
    }
    item.Images = IdsOf(object.value(QStringLiteral("images")));
    item.Props = IdsOf(object.value(QStringLiteral("propBag")));
    item.ContentFile = TextOf(object.value(QStringLiteral("file")));
    item.MusicFile = TextOf(object.value(QStringLiteral("musicFile")));
    item.OnlyAsProp = object.value(QStringLiteral("onlyAsProp")).toBool();
    return true;
}

QJsonObject ToJson(const Service& service) {
    QJsonArray rows;
    for (const Row& row : service.Rows)
        rows.append(QJsonObject{{QStringLiteral("item"), row.ItemId},
                                {QStringLiteral("show"), row.ShowAtRunTime},
                                {QStringLiteral("length"), TextValue(row.Length)}});
    QJsonObject object{{QStringLiteral("id"), service.Id},
                       {QStringLiteral("fields"), FieldsToJson(service.Fields)},
                       {QStringLiteral("rows"), rows}};
    if (!service.Props.isEmpty())
        object.insert(QStringLiteral("propBag"), Ids(service.Props));
    if (!service.Resources.isEmpty())
        object.insert(QStringLiteral("resources"), Texts(service.Resources));
    return object;
}

bool FromJson(const QJsonObject& object, Service& service, QString& strError) {
    service = Service();
    service.Id = object.value(QStringLiteral("id")).toInt();
    QString why;
    if (!FieldsFromJson(object.value(QStringLiteral("fields")), service.Fields, why)) {
        strError = QStringLiteral("A service of the file cannot be read: %1.").arg(why);
        return false;
    }
    for (const QJsonValue& value : object.value(QStringLiteral("rows")).toArray()) {
        const QJsonObject row = value.toObject();
        service.Rows.append({row.value(QStringLiteral("item")).toInt(1),
                             row.value(QStringLiteral("show")).toBool(true),
                             TextOf(row.value(QStringLiteral("length")))});
    }
    service.Props = IdsOf(object.value(QStringLiteral("propBag")));
    service.Resources = TextsOf(object.value(QStringLiteral("resources")));
    return true;
}

} // namespace Exchange
