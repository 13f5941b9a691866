#include "ServiceSheets.h"

#include "DataAccessCore.h"
#include "Exchange.h"

#include <QDateTime>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QSqlQuery>
#include <QTextDocument>
#include <QUrl>

using P = DataAccessPrivate;

namespace ServiceSheets {

namespace {

// The prompts the options screen stores in a church field that was never filled in: they are
// not the church's details and stay off the sheets.
const QStringList kPrompts = {
    QStringLiteral("Enter church name here"),
    QStringLiteral("Enter the name of the pastor as it should appear on church stationery"),
    QStringLiteral("Enter church address in these boxes"),
    QStringLiteral("Enter the main church phone number in this box"),
    QStringLiteral("Enter any other church phone number in this box"),
    QStringLiteral("Enter church email address here"),
    QStringLiteral("Enter church web address here"),
    QStringLiteral("Enter church mission statement here"),
    QStringLiteral("Select a picture file for your church logo")};

const QString kLogo = QStringLiteral("corvantis-sheet://logo");

QString Html(const QString& strText) {
    return strText.toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br/>"));
}

struct Type {
    QString Name;
    bool Title = true;
    bool Content = false;
};

QHash<qint32, Type> Types() {
    QHash<qint32, Type> types;
    QSqlQuery q(P::Db());
    q.exec(QStringLiteral("SELECT ServiceItemTypeID, ServiceItemTypeName, "
                          "ByDefaultIncludeTitleOnServiceSheet, "
                          "ByDefaultIncludeContentOnServiceSheet FROM ServiceItemTypes"));
    while (q.next())
        types.insert(q.value(0).toInt(),
                     {q.value(1).toString(), q.value(2).toInt() != 0, q.value(3).toInt() != 0});
    return types;
}

// One field of the options row; empty for Null and for a prompt.
QString Church(const QString& strField) {
    QString ignored;
    const QString value = P::Scalar(QStringLiteral("SELECT %1 FROM Options").arg(strField), {},
                                    ignored, "PrintService")
                              .toString()
                              .trimmed();
    return kPrompts.contains(value) ? QString() : P::ToDisplay(value);
}

// The church's name, address and logo at the head of a sheet.
QString ChurchHeader(QTextDocument& document) {
    QString html;
    const QImage logo(Church(QStringLiteral("ChurchLogoFilename")));
    if (!logo.isNull()) {
        document.addResource(QTextDocument::ImageResource, QUrl(kLogo), logo);
        const int height = 60;
        html +=
            QStringLiteral("<p align=\"center\"><img src=\"%1\" height=\"%2\" width=\"%3\"/></p>")
                .arg(kLogo)
                .arg(height)
                .arg(logo.width() * height / qMax(1, logo.height()));
    }
    const QString name = Church(QStringLiteral("ChurchName"));
    if (!name.isEmpty())
        html += QStringLiteral("<h2 align=\"center\">%1</h2>").arg(Html(name));
    QStringList address;
    for (const char* field : {"ChurchAddress1", "ChurchAddress2", "ChurchAddress3",
                              "ChurchAddress4", "ChurchPhone1", "ChurchWebSite"}) {
        const QString line = Church(QLatin1String(field));
        if (!line.isEmpty())
            address << Html(line);
    }
    if (!address.isEmpty())
        html += QStringLiteral("<p align=\"center\"><small>%1</small></p>")
                    .arg(address.join(QStringLiteral(" &middot; ")));
    return html;
}

QString DateText(const QVariant& varStored) {
    const QDateTime when =
        QDateTime::fromString(varStored.toString(), QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    return when.isValid() ? when.toString(QStringLiteral("dddd d MMMM yyyy")) : QString();
}

// The words of an item: a song's parts in the order sung, a points list's points, else its text.
QString Words(const Exchange::Item& item, bool blnPartNames) {
    QString html;
    if (!item.Parts.isEmpty()) {
        QList<int> order = item.Order;
        if (order.isEmpty())
            for (int n = 0; n < item.Parts.size(); ++n)
                order << n;
        for (int index : order) {
            const Exchange::Part& part = item.Parts.at(index);
            if (blnPartNames)
                html += QStringLiteral("<p><b>%1</b></p>").arg(Html(part.Name));
            html += part.IsChorus ? QStringLiteral("<p style=\"margin-left:20px\"><i>%1</i></p>")
                                        .arg(Html(part.Text))
                                  : QStringLiteral("<p>%1</p>").arg(Html(part.Text));
        }
    } else if (!item.Points.isEmpty()) {
        html += QStringLiteral("<ul>");
        for (const Exchange::Point& point : item.Points)
            html +=
                QStringLiteral("<li%1>%2</li>")
                    .arg(point.ParentKey.isEmpty() ? QString()
                                                   : QStringLiteral(" style=\"margin-left:20px\""),
                         Html(point.Text));
        html += QStringLiteral("</ul>");
    } else {
        const QString text = item.Fields.value(QStringLiteral("ServiceItemContent")).toString();
        for (const QString& paragraph : text.split(QStringLiteral("\n\n"), Qt::SkipEmptyParts))
            html += QStringLiteral("<p>%1</p>").arg(Html(paragraph.trimmed()));
    }
    return html;
}

QString Field(const Exchange::Item& item, const char* name) {
    return P::ToDisplay(item.Fields.value(QLatin1String(name)).toString());
}

bool ServiceSheet(qint32 lngID, QTextDocument& document, QString& strError) {
    Exchange::Service service;
    if (!Exchange::ReadService(lngID, service, strError))
        return false;
    const QHash<qint32, Type> types = Types();
    QString html = ChurchHeader(document);
    html += QStringLiteral("<h1 align=\"center\">%1</h1>").arg(Html(service.Title()));
    const QString theme =
        P::ToDisplay(service.Fields.value(QStringLiteral("ServiceTheme")).toString());
    if (!theme.isEmpty())
        html += QStringLiteral("<p align=\"center\">Theme: %1</p>").arg(Html(theme));
    QVariant date = service.Fields.value(QStringLiteral("ServiceDateLastDelivered"));
    if (date.isNull() || date.toString().isEmpty())
        date = service.Fields.value(QStringLiteral("ServiceDateCreated"));
    html += QStringLiteral("<p align=\"center\">%1</p><hr/>").arg(Html(DateText(date)));
    for (const Exchange::Row& row : service.Rows) {
        if (row.ItemId == 1)
            continue;
        Exchange::Item item;
        if (!Exchange::ReadItem(row.ItemId, item, strError))
            return false;
        const Type type = types.value(item.TypeId());
        if (!type.Title)
            continue;
        html += QStringLiteral("<h3>%1</h3>").arg(Html(item.Title()));
        if (type.Content)
            html += Words(item, false);
    }
    document.setHtml(html);
    return true;
}

bool ItemSheet(qint32 lngID, QTextDocument& document, QString& strError) {
    Exchange::Item item;
    if (!Exchange::ReadItem(lngID, item, strError))
        return false;
    QString html = ChurchHeader(document);
    html += QStringLiteral("<h1>%1</h1>").arg(Html(item.Title()));
    QStringList details{Html(Types().value(item.TypeId()).Name)};
    for (const auto& [label, field] : {std::pair{"Source", "ServiceItemSource"},
                                       {"Melody", "ServiceItemMelody"},
                                       {"Key", "ServiceItemSongKey"},
                                       {"Copyright", "ServiceItemCopyrightDetails"}}) {
        const QString value = Field(item, field);
        if (!value.isEmpty())
            details << QStringLiteral("%1: %2").arg(QLatin1String(label), Html(value));
    }
    html += QStringLiteral("<p><small>%1</small></p><hr/>")
                .arg(details.join(QStringLiteral(" &middot; ")));
    html += Words(item, true);
    const QString notes = Field(item, "ServiceItemNotes");
    if (!notes.isEmpty())
        html += QStringLiteral("<hr/><p><b>Notes</b></p><p>%1</p>").arg(Html(notes));
    document.setHtml(html);
    return true;
}

// The operator's keys, on the console and on the projector window alike; each key of a row
// stands on a line of its own.
const char* const kKeys[][2] = {
    {"Space, Right arrow, Page Down", "next part or item"},
    {"Left arrow, Page Up", "back to the part or item before"},
    {"B", "black out the projector, and back on"},
    {"Esc", "end the prop showing, or the run"},
};

QString KeysTable() {
    QString html = QStringLiteral("<h3>Keys</h3><table border=\"1\" cellpadding=\"4\" "
                                  "cellspacing=\"0\" width=\"100%\">");
    for (const auto& key : kKeys)
        html += QStringLiteral("<tr><td width=\"35%\"><b>%1</b></td><td>%2</td></tr>")
                    .arg(QString::fromLatin1(key[0]).replace(QStringLiteral(", "),
                                                             QStringLiteral("<br/>")),
                         QLatin1String(key[1]));
    return html + QStringLiteral("</table>");
}

bool ShortCutSheet(qint32 lngID, QTextDocument& document, QString& strError) {
    Exchange::Service service;
    if (!Exchange::ReadService(lngID, service, strError))
        return false;
    const QHash<qint32, Type> types = Types();
    QString html = QStringLiteral("<h1>Short-cuts: %1</h1>").arg(Html(service.Title()));
    html += KeysTable();
    html += QStringLiteral("<h3>Run order</h3><table border=\"1\" cellpadding=\"4\" "
                           "cellspacing=\"0\" width=\"100%\"><tr><th>No.</th><th>Service "
                           "Item</th><th>Type</th><th>Parts</th></tr>");
    int number = 0;
    for (const Exchange::Row& row : service.Rows) {
        if (!row.ShowAtRunTime)
            continue;
        Exchange::Item item;
        if (!Exchange::ReadItem(row.ItemId, item, strError))
            return false;
        QStringList parts;
        for (int index : item.Order)
            parts << Html(item.Parts.at(index).Name);
        html += QStringLiteral("<tr><td>%1</td><td>%2</td><td>%3</td><td>%4</td></tr>")
                    .arg(++number)
                    .arg(Html(item.Title()), Html(types.value(item.TypeId()).Name),
                         parts.join(QStringLiteral(", ")));
    }
    html += QStringLiteral("</table>");
    if (!service.Props.isEmpty()) {
        html += QStringLiteral("<h3>Props</h3><ul>");
        for (qint32 prop : service.Props) {
            Exchange::Item item;
            if (Exchange::ReadItem(prop, item, strError))
                html += QStringLiteral("<li>%1</li>").arg(Html(item.Title()));
        }
        html += QStringLiteral("</ul>");
    }
    document.setHtml(html);
    return true;
}

TemplateSheetMaker& Maker() {
    static TemplateSheetMaker maker;
    return maker;
}

} // namespace

void SetTemplateSheetMaker(TemplateSheetMaker maker) {
    Maker() = std::move(maker);
}

const TemplateSheetMaker& InstalledTemplateSheetMaker() {
    return Maker();
}

QString Title(Kind kind, qint32 lngID) {
    QString strError;
    if (kind == Kind::ServiceItem) {
        Exchange::Item item;
        return Exchange::ReadItem(lngID, item, strError) ? item.Title() : QString();
    }
    Exchange::Service service;
    if (!Exchange::ReadService(lngID, service, strError))
        return QString();
    return kind == Kind::ShortCuts ? QStringLiteral("Short-cuts: ") + service.Title()
                                   : service.Title();
}

bool Write(Kind kind, qint32 lngID, const QString& strPdfFile, QString& strError) {
    QTextDocument document;
    document.setDefaultFont(QFont(QStringLiteral("DejaVu Sans"), 11));
    const bool built = kind == Kind::Service       ? ServiceSheet(lngID, document, strError)
                       : kind == Kind::ServiceItem ? ItemSheet(lngID, document, strError)
                                                   : ShortCutSheet(lngID, document, strError);
    if (!built)
        return false;
    QPdfWriter writer(strPdfFile);
    writer.setCreator(QStringLiteral("Corvantis"));
    writer.setTitle(Title(kind, lngID));
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                     QMarginsF(18, 18, 18, 18), QPageLayout::Millimeter));
    document.print(&writer);
    return true;
}

} // namespace ServiceSheets
