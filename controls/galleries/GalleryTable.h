#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// What one gallery is made of, as data: the words, key marks, groups and filter
// vocabulary that set one gallery apart from another. GalleryCore does the work
// for every gallery from its table; the control keeps only what is really its
// own (its loader, its picture rule and its special commands).

// One way of grouping the tree: the caption of cboGroupByProperty, the field
// whose value makes the group key and the field whose text is the group's text.
struct GalleryGroup {
    QString strCaption;
    QString strValueField;
    QString strTextField;
};

// One property of the main filter: the caption of cboProperty and its field.
struct GalleryFilterField {
    QString strCaption;
    QString strField;
};

struct GalleryTable {
    QString strClass;              // "ctlServiceItemGallery": trace lines and failure prefixes
    QString strItemMark;           // ";;SI;" in an item node's key
    QString strListMark;           // "SI;" at the start of a list item's key
    QString strRootText;           // text of the "Root" node
    QString strAllText;            // description of the root in the click event
    QString strGroupWords;         // "Service Items for ": a group's description
    QString strAllAtWords;         // "All Service Items at ": the root's export
    QString strSelectionText;      // "Selection of Service Items": several list items exported
    QString strItemType;           // event type of one item ("SI")
    QString strGroupType;          // event type of a group or the root ("SIGroup")
    QString strFilterCaption;      // caption of fraFilter
    QList<GalleryGroup> lstGroups; // cboGroupByProperty, in order
    QStringList lstFilterOffered;  // cboProperty, in order
    QList<GalleryFilterField> lstFilterFields; // the fields of the clause, tested in order

    // The group of a caption; an unknown caption has empty fields.
    GalleryGroup Group(const QString& strCaption) const {
        for (const GalleryGroup& group : lstGroups)
            if (group.strCaption == strCaption)
                return group;
        return {strCaption, QString(), QString()};
    }
    QStringList GroupCaptions() const {
        QStringList lst;
        for (const GalleryGroup& group : lstGroups)
            lst << group.strCaption;
        return lst;
    }
    // The field of a filter property; empty for an unknown one.
    QString FilterField(const QString& strCaption) const {
        for (const GalleryFilterField& field : lstFilterFields)
            if (field.strCaption == strCaption)
                return field.strField;
        return QString();
    }
};
