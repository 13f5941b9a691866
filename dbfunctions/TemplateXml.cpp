#include "TemplateSheet.h"

#include <QUrl>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <memory>
#include <vector>

// Filling one XML part of a template. The part is read into a small tree that keeps every
// character of text as it stands (in a paragraph a lone space between two fields is text), and
// names as they are written, with their prefixes: "text:user-field-get", as Writer writes them.

namespace TemplateSheet {
namespace {

struct XNode {
    enum Kind { Element, Text, Comment };
    Kind kind = Element;
    QString name;                             // element name with its prefix
    QList<std::pair<QString, QString>> attrs; // in their order, namespace declarations too
    QString text;
    std::vector<std::shared_ptr<XNode>> children;
    XNode* parent = nullptr;

    bool Has(const QString& strName) const {
        for (const auto& attr : attrs)
            if (attr.first == strName)
                return true;
        return false;
    }
    QString Attr(const QString& strName) const {
        for (const auto& attr : attrs)
            if (attr.first == strName)
                return attr.second;
        return QString();
    }
    void SetAttr(const QString& strName, const QString& strValue) {
        for (auto& attr : attrs) {
            if (attr.first == strName) {
                attr.second = strValue;
                return;
            }
        }
        attrs.append({strName, strValue});
    }
};
using NodePtr = std::shared_ptr<XNode>;

NodePtr Parse(const QByteArray& xml, QString& strError) {
    auto root = std::make_shared<XNode>();
    XNode* current = root.get();
    QXmlStreamReader reader(xml);
    reader.setNamespaceProcessing(false);
    auto add = [&](NodePtr node) {
        node->parent = current;
        current->children.push_back(node);
        return node.get();
    };
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement: {
            auto node = std::make_shared<XNode>();
            node->name = reader.qualifiedName().toString();
            for (const QXmlStreamAttribute& attr : reader.attributes())
                node->attrs.append({attr.qualifiedName().toString(), attr.value().toString()});
            for (const QXmlStreamNamespaceDeclaration& ns : reader.namespaceDeclarations()) {
                const QString strName = ns.prefix().isEmpty()
                                            ? QStringLiteral("xmlns")
                                            : QStringLiteral("xmlns:") + ns.prefix().toString();
                if (!node->Has(strName))
                    node->attrs.append({strName, ns.namespaceUri().toString()});
            }
            current = add(node);
            break;
        }
        case QXmlStreamReader::EndElement:
            current = current->parent;
            break;
        case QXmlStreamReader::Characters: {
            auto node = std::make_shared<XNode>();
            node->kind = XNode::Text;
            node->text = reader.text().toString();
            if (current != root.get())
                add(node);
            break;
        }
        case QXmlStreamReader::Comment: {
            auto node = std::make_shared<XNode>();
            node->kind = XNode::Comment;
            node->text = reader.text().toString();
            add(node);
            break;
        }
        default:
            break;
        }
    }
    if (reader.hasError()) {
        strError = QStringLiteral("its XML cannot be read (line %1: %2)")
                       .arg(reader.lineNumber())
                       .arg(reader.errorString());
        return nullptr;
    }
    return root;
}

void Write(QXmlStreamWriter& writer, const XNode& node) {
    switch (node.kind) {
    case XNode::Text:
        writer.writeCharacters(node.text);
        return;
    case XNode::Comment:
        writer.writeComment(node.text);
        return;
    case XNode::Element:
        writer.writeStartElement(node.name);
        for (const auto& attr : node.attrs)
            writer.writeAttribute(attr.first, attr.second);
        for (const NodePtr& child : node.children)
            Write(writer, *child);
        writer.writeEndElement();
        return;
    }
}

QByteArray Serialise(const XNode& root) {
    QByteArray out;
    QXmlStreamWriter writer(&out);
    writer.setAutoFormatting(false);
    writer.writeStartDocument();
    for (const NodePtr& child : root.children)
        Write(writer, *child);
    writer.writeEndDocument();
    return out;
}

NodePtr Clone(const XNode& node, XNode* parent) {
    auto copy = std::make_shared<XNode>();
    copy->kind = node.kind;
    copy->name = node.name;
    copy->attrs = node.attrs;
    copy->text = node.text;
    copy->parent = parent;
    for (const NodePtr& child : node.children)
        copy->children.push_back(Clone(*child, copy.get()));
    return copy;
}

void Collect(XNode& node, const QString& strName, QList<XNode*>& found) {
    if (node.kind == XNode::Element && node.name == strName)
        found << &node;
    for (const NodePtr& child : node.children)
        Collect(*child, strName, found);
}

QList<XNode*> All(XNode& root, const QString& strName) {
    QList<XNode*> found;
    Collect(root, strName, found);
    return found;
}

qsizetype IndexInParent(const XNode* node) {
    const auto& siblings = node->parent->children;
    for (size_t i = 0; i < siblings.size(); ++i)
        if (siblings[i].get() == node)
            return static_cast<qsizetype>(i);
    return -1;
}

void Remove(XNode* node) {
    auto& siblings = node->parent->children;
    siblings.erase(siblings.begin() + IndexInParent(node));
}

// The text in place of a field: a line break for each new line, a tab for each tab.
void ReplaceWithText(XNode* field, const QString& strValue) {
    XNode* parent = field->parent;
    qsizetype at = IndexInParent(field);
    parent->children.erase(parent->children.begin() + at);
    auto insert = [&](NodePtr node) {
        node->parent = parent;
        parent->children.insert(parent->children.begin() + at++, node);
    };
    QString strRun;
    auto flush = [&] {
        if (strRun.isEmpty())
            return;
        auto text = std::make_shared<XNode>();
        text->kind = XNode::Text;
        text->text = strRun;
        insert(text);
        strRun.clear();
    };
    const QString strText = QString(strValue).remove(QLatin1Char('\r'));
    for (const QChar ch : strText) {
        if (ch != QLatin1Char('\n') && ch != QLatin1Char('\t')) {
            strRun += ch;
            continue;
        }
        flush();
        auto mark = std::make_shared<XNode>();
        mark->name = ch == QLatin1Char('\n') ? QStringLiteral("text:line-break")
                                             : QStringLiteral("text:tab");
        insert(mark);
    }
    flush();
}

const QString kFieldGet = QStringLiteral("text:user-field-get");

void FillFields(XNode& root, const Values& values) {
    for (XNode* field : All(root, kFieldGet)) {
        const auto it = values.constFind(field->Attr(QStringLiteral("text:name")));
        if (it != values.constEnd())
            ReplaceWithText(field, it.value());
    }
}

// The part repeated for each row: the table row holding a row field, else its paragraph.
XNode* RepeatedUnit(XNode* field) {
    XNode* paragraph = nullptr;
    for (XNode* node = field->parent; node; node = node->parent) {
        if (node->name == QLatin1String("table:table-row"))
            return node;
        if (!paragraph &&
            (node->name == QLatin1String("text:p") || node->name == QLatin1String("text:h")))
            paragraph = node;
    }
    return paragraph;
}

// A table keeps at least one row: without rows to show its one row stays, with nothing in it.
bool OnlyRowOfItsTable(XNode* unit) {
    if (unit->name != QLatin1String("table:table-row"))
        return false;
    XNode* table = unit->parent;
    while (table && table->name != QLatin1String("table:table"))
        table = table->parent;
    return table && All(*table, QStringLiteral("table:table-row")).size() == 1;
}

Values EmptyRow() {
    Values values;
    for (const Field& field : RowFields().fields)
        values.insert(QString::fromLatin1(field.name), QString());
    return values;
}

void RepeatRows(XNode& root, const QList<Values>& rows) {
    QList<XNode*> units;
    for (XNode* field : All(root, kFieldGet)) {
        if (!IsRowField(field->Attr(QStringLiteral("text:name"))))
            continue;
        XNode* unit = RepeatedUnit(field);
        if (unit && !units.contains(unit))
            units << unit;
    }
    for (XNode* unit : units) {
        if (rows.isEmpty() && OnlyRowOfItsTable(unit)) {
            FillFields(*unit, EmptyRow());
            continue;
        }
        XNode* parent = unit->parent;
        qsizetype at = IndexInParent(unit);
        for (const Values& row : rows) {
            NodePtr copy = Clone(*unit, parent);
            FillFields(*copy, row);
            parent->children.insert(parent->children.begin() + at++, copy);
        }
        Remove(unit);
    }
}

// A frame named ChurchLogo shows the logo file; without a logo a filled sheet drops the frame.
void PlaceLogo(XNode& root, const QString& strLogoFile, bool blnKeepWithoutLogo) {
    for (XNode* frame : All(root, QStringLiteral("draw:frame"))) {
        if (frame->Attr(QStringLiteral("draw:name")) != QLatin1String("ChurchLogo"))
            continue;
        if (strLogoFile.isEmpty()) {
            if (!blnKeepWithoutLogo)
                Remove(frame);
            continue;
        }
        for (XNode* image : All(*frame, QStringLiteral("draw:image"))) {
            image->SetAttr(QStringLiteral("xlink:href"),
                           QUrl::fromLocalFile(strLogoFile).toString());
            auto& children = image->children;
            std::erase_if(children, [](const NodePtr& child) {
                return child->name == QLatin1String("office:binary-data");
            });
        }
    }
}

void Declare(XNode& root, const Values& values) {
    for (XNode* decl : All(root, QStringLiteral("text:user-field-decl"))) {
        const auto it = values.constFind(decl->Attr(QStringLiteral("text:name")));
        if (it != values.constEnd())
            decl->SetAttr(QStringLiteral("office:string-value"), it.value());
    }
}

} // namespace

bool FillXml(QByteArray& xml, const Sheet& sheet, bool blnDeclarationsOnly, QString& strError) {
    const NodePtr root = Parse(xml, strError);
    if (!root)
        return false;
    Declare(*root, sheet.fields);
    PlaceLogo(*root, sheet.logoFile, blnDeclarationsOnly);
    if (!blnDeclarationsOnly) {
        if (sheet.hasRows)
            RepeatRows(*root, sheet.rows);
        FillFields(*root, sheet.fields);
        for (XNode* document : All(*root, QStringLiteral("office:document")))
            document->SetAttr(QStringLiteral("office:mimetype"),
                              QStringLiteral("application/vnd.oasis.opendocument.text"));
    }
    xml = Serialise(*root);
    return true;
}

} // namespace TemplateSheet
