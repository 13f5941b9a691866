#pragma once

#include "Recordset.h"

#include <QDateTime>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <memory>

class QTextEdit;
class QWidget;

// DataAccess: every read and write of Corvantis' database (Corvantis.pdb, an SQLite file).
//
// One instance, DataAccess::Instance(), created on first use and never released. Every
// operation reports failure through its strErrorMessage out argument: empty means success,
// otherwise a text that says what went wrong. Nothing is thrown for an expected failure and
// nothing is shown to the user: the storage layer has no user interface.
//
// Conventions of the arguments:
//  - An [out] argument is a non-const reference; a recordset comes back in a
//    std::unique_ptr<Recordset>& (reset, also on failure).
//  - intRecordsetType is accepted for the callers' sake; every recordset is a read-only snapshot.
//  - strWhereClause is a Jet SQL condition without the word WHERE ("ServiceItemID = 5",
//    "ServiceItemDescription Like '*grace*'"); empty means all rows. It is parsed by JetWhere
//    and run with bound parameters; a clause outside that language gives an error text and runs
//    nothing.
//  - Values a caller passes "not read" have a parameter in the full signature; overloads without
//    the trailing unread values exist for convenience.
//  - Stored texts may hold "@@" in place of an apostrophe; DecodeStoredText converts.
//
// Opening: every operation works on the open database. When none is open, the first operation
// opens the configured one (OpenConfiguredDatabase): the sample database in sample mode
// (Options/IsSampleMode "True" in Corvantis.ini), else Corvantis.pdb in the data folder.
//
// Transactions (the data engine's one global transaction, used by the service item editor):
// BeginTrans(), CommitTrans() and Rollback() below. Writes of DataAccess made while it is open
// take part in it. Nesting, chosen so that no user data is silently lost:
//  - BeginTrans while a transaction is still open (one that a caller began and never ended)
//    first commits that pending work, then begins a new transaction;
//  - CommitTrans commits all pending work; Rollback discards what was written since the last
//    BeginTrans; both do nothing when no transaction is open;
//  - an orderly close (CloseDatabase, opening another file, the end of the program) commits
//    pending work. Only a crash loses it, and then the file stays consistent (SQLite's journal).
class DataAccess {
public:
    static DataAccess& Instance();

    DataAccess(const DataAccess&) = delete;
    DataAccess& operator=(const DataAccess&) = delete;

    // ---- The database file -------------------------------------------------------------
    // Switches to the database file strPath; creates it with schema and seed rows when it does
    // not exist, and upgrades an older schema. The content folder becomes the "Content" folder
    // beside the file unless Paths/Content of Corvantis.ini names another.
    void OpenDatabase(const QString& strPath, QString& strErrorMessage);
    // Opens the database the settings name (see above).
    void OpenConfiguredDatabase(QString& strErrorMessage);
    // Opens the sample database, building it first when it does not exist yet.
    void OpenSampleDatabase(QString& strErrorMessage);
    // Commits pending work and closes the file.
    void CloseDatabase();
    bool IsOpen() const;
    QString DatabasePath() const { return m_databasePath; }
    // Corvantis.pdb in the data folder.
    static QString DefaultDatabasePath();
    // The sample database: Sample/Corvantis.pdb under the user's data folder
    // (~/.local/share/Corvantis/Sample/), its pictures and music in Sample/Content/.
    static QString SampleDatabasePath();
    // Options/IsSampleMode of Corvantis.ini reads "True".
    static bool IsSampleMode();
    // Overrides the content folder of the open database (tests, tools).
    void SetContentFolder(const QString& strFolder) { m_contentFolder = strFolder; }
    // The connection itself, for tests and tools that check rows directly. Controls never use it.
    QSqlDatabase Database();
    // Schema version of the files this build writes.
    static int CurrentSchemaVersion();

    // ---- Transactions ----------------------------------------------------------------
    void BeginTrans();
    void CommitTrans();
    void Rollback();
    bool InTransaction() const { return m_inTransaction; }

    // ---- Services ----------------------------------------------------------------------
    void GetServices(const QString& strWhereClause, qint16 intRecordsetType,
                     QString& strErrorMessage, std::unique_ptr<Recordset>& rs);
    void GetAllServices(const QString& strWhereClause, qint16 intRecordsetType,
                        QString& strErrorMessage, std::unique_ptr<Recordset>& rs);
    void GetServiceDescription(qint32 lngServiceID, QString& strErrorMessage,
                               QString& strDescription);
    void AddService(QString& strErrorMessage, qint32& lngNewServiceID);
    // dtmDateLastDelivered: an invalid QDateTime (the "0" of the callers) keeps the stored
    // date; lngReserved is not used.
    void SaveServiceDetails(qint32 lngServiceID, const QString& strName, const QString& strType,
                            const QString& strTheme, const QString& strProvider,
                            const QString& strNotes, const QDateTime& dtmDateLastDelivered,
                            qint32 lngReserved, QString& strErrorMessage);
    void DeleteService(qint32 lngServiceID, const QVariant& varReserved, QString& strErrorMessage,
                       QVariant& varReservedOut);
    void DeleteService(qint32 lngServiceID, QString& strErrorMessage);
    // Records that a service was shown (and, for the galleries, delivered: no result).
    void ServiceShown(qint32 lngServiceID);
    void GetServiceTypes(const QString& strWhere, QString& strErrorMessage,
                         std::unique_ptr<Recordset>& rs);
    void GetServiceThemes(const QString& strWhere, QString& strErrorMessage,
                          std::unique_ptr<Recordset>& rs);
    void GetServiceContents(const QString& strWhereClause, qint16 intRecordsetType,
                            QString& strErrorMessage, std::unique_ptr<Recordset>& rs);
    void DeleteServiceContents(qint32 lngServiceID, QString& strErrorMessage);
    // Appends one row; lngNewServiceContentID receives the id of the new row.
    void AddServiceContentItem(qint32 lngServiceID, qint32 lngServiceItemID, bool blnShowAtRunTime,
                               const QString& strLength, QString& strErrorMessage,
                               qint32& lngNewServiceContentID);
    void AddServiceContentItem(qint32 lngServiceID, qint32 lngServiceItemID, bool blnShowAtRunTime,
                               const QString& strLength, QString& strErrorMessage);
    // One row of a service's contents for AddServiceContentItems.
    struct ServiceContentRow {
        qint32 lngServiceItemID = 0;
        bool blnShowAtRunTime = true;
        QString strLength;
    };
    // Appends the rows, in their order, after the service's last row: the same rows that one
    // AddServiceContentItem per row would store, written as one statement run again and again
    // in one write. All rows are stored, or (the error text says why) none of them; a service
    // that does not exist stores none.
    void AddServiceContentItems(qint32 lngServiceID, const QList<ServiceContentRow>& rows,
                                QString& strErrorMessage);
    void GetServiceResources(const QString& strWhereClause, qint16 intRecordsetType,
                             QString& strErrorMessage, std::unique_ptr<Recordset>& rs);
    void AddServiceResource(qint32 lngServiceID, const QString& strResourceName,
                            QString& strErrorMessage);
    void DeleteServiceResources(qint32 lngServiceID, QString& strErrorMessage);
    void GetServicePropBag(const QString& strWhereClause, qint16 intRecordsetType,
                           QString& strErrorMessage, std::unique_ptr<Recordset>& rs);
    void DeleteServicePropBag(qint32 lngServiceID, QString& strErrorMessage);
    void AddServicePropBagItem(qint32 lngServiceID, qint32 lngServiceItemID,
                               QString& strErrorMessage);

    // ---- Service items -----------------------------------------------------------------
    // One row per item x keyword x point (left joins), newest item first.
    void GetServiceItemsJoined(const QString& strWhereClause, qint16 intRecordsetType,
                               QString& strErrorMessage, std::unique_ptr<Recordset>& rs);
    // All fields of ServiceItems plus ServiceItemTypeName, newest first.
    void GetServiceItems(const QString& strWhereClause, qint16 intRecordsetType,
                         QString& strErrorMessage, std::unique_ptr<Recordset>& rs);
    // Creates an item of type SIType (0: no type yet, "None") with the given texts.
    // blnApplyDefaults: take the run details from the system options (points display).
    void AddServiceItem(const QString& strDescription, const QString& strSource,
                        const QString& strContent, qint32 SIType, QString& strErrorMessage,
                        bool blnApplyDefaults, qint32& lngNewServiceItemID);
    void SaveServiceItemGeneral(qint32 lngTypeID, qint32 lngServiceItemID,
                                const QString& strDescription, const QString& strSource,
                                const QString& strNotes, const QString& strSongKey,
                                const QString& strCopyright, const QString& strLocation,
                                const QString& strMelody, QString& strErrorMessage,
                                QVariant& varReservedOut);
    void SaveServiceItemGeneral(qint32 lngTypeID, qint32 lngServiceItemID,
                                const QString& strDescription, const QString& strSource,
                                const QString& strNotes, const QString& strSongKey,
                                const QString& strCopyright, const QString& strLocation,
                                const QString& strMelody, QString& strErrorMessage);
    // strFilename: a full path; one inside the content folder is stored as its bare name, and
    // ServiceItemFileDescription gets the file's name.
    void SaveServiceItemContent(qint32 lngServiceItemID, qint32 lngTypeID,
                                const QString& strContent, const QString& strFilename,
                                QString& strErrorMessage, QVariant& varReservedOut);
    void SaveServiceItemContent(qint32 lngServiceItemID, qint32 lngTypeID,
                                const QString& strContent, const QString& strFilename,
                                QString& strErrorMessage);
    // lngReserved is not used.
    void SaveServiceItemRunDetails(qint32 lngServiceItemID, bool blnRunAsPointsList,
                                   qint32 lngReserved, qint16 intTextViewMode,
                                   qint16 intSecondsToRun, qint16 intChangeImageEveryXSeconds,
                                   qint16 intLinesAtATime, const QString& strServiceItemMusic,
                                   const QString& strStartMusicPrompt,
                                   bool blnRevealSubPointsOneByOne, QString& strErrorMessage,
                                   bool blnHideSIDetails, QVariant& varReservedOut);
    void SaveServiceItemRunDetails(qint32 lngServiceItemID, bool blnRunAsPointsList,
                                   qint32 lngReserved, qint16 intTextViewMode,
                                   qint16 intSecondsToRun, qint16 intChangeImageEveryXSeconds,
                                   qint16 intLinesAtATime, const QString& strServiceItemMusic,
                                   const QString& strStartMusicPrompt,
                                   bool blnRevealSubPointsOneByOne, QString& strErrorMessage,
                                   bool blnHideSIDetails);
    // Deletes the item with its verses, sequence, points, keywords links, resources, images,
    // prop bag rows, its rows in services and prop bags, and the links of other items to it
    // (background image rows, a music link by id). The Blank item (1) cannot be deleted.
    void DeleteServiceItem(qint32 lngServiceItemID, const QVariant& varReserved,
                           QString& strErrorMessage, QVariant& varReservedOut);
    void DeleteServiceItem(qint32 lngServiceItemID, QString& strErrorMessage);
    void ServiceItemShown(qint32 lngServiceItemID);
    // Runs the item on its own on the projector through the application (SetServiceItemRunner);
    // an item that does not exist, or no application to run it, answers an error text.
    void RunServiceItem(qint32 lngServiceItemID, QString& strErrorMessage,
                        QVariant& varReservedOut);
    void RunServiceItem(qint32 lngServiceItemID, QString& strErrorMessage);
    // Full path of the item's file (a bare stored name is joined to the content folder); empty
    // when the item has no file.
    void GetServiceItemFileName(qint32 lngServiceItemID, QString& strErrorMessage,
                                QString& strFileName);
    // The text of the content: ServiceItemContent, else the verses in sequence order (blank
    // line between parts), else the points one per line, else the text of a .txt file.
    void GetServiceItemText(qint32 lngServiceItemID, QString& strErrorMessage, QString& strText);
    // The stored description (may hold "@@"); the Blank item answers "Blank"; an item without
    // a description answers "(No Description)".
    void GetServiceItemDescription(qint32 lngServiceItemID, QString& strErrorMessage,
                                   QString& strDescription);
    void GetServiceItemTypeID(qint32 lngServiceItemID, QString& strErrorMessage, qint16& intTypeID);
    void GetServiceItemShowAsPoints(qint32 lngServiceItemID, QString& strErrorMessage,
                                    bool& blnShowAsPoints);
    void ServiceItemExists(qint32 lngServiceItemID, QString& strErrorMessage, bool& blnExists);
    void GetNewestServiceItemID(QString& strErrorMessage, qint32& lngServiceItemID);
    void ClearRunAsPointsList(qint32 lngServiceItemID, QString& strErrorMessage);
    void ClearServiceItemMusic(qint32 lngServiceItemID, QString& strErrorMessage);
    // Asks the user for a service item of the type through the picker that the controls
    // install (ServiceItemPick.h): the id chosen, 0 for Cancel or when the type has no items.
    // Without a picker: an error text and 0.
    void PickServiceItem(qint16 intTypeID, QString& strErrorMessage, qint32& lngServiceItemID);

    // ---- Verses -------------------------------------------------------------------------
    void ServiceItemHasVerses(qint32 lngServiceItemID, QString& strErrorMessage,
                              bool& blnHasVerses);
    // Fields IsChorus, VerseName, Verses.VerseID, VerseText, SongSequence.Position.
    void GetSongSequence(qint32 lngServiceItemID, QString& strErrorMessage,
                         std::unique_ptr<Recordset>& rs);
    void GetVerseFirstLine(qint32 lngVerseID, QString& strErrorMessage, QString& strFirstLine);
    // Not available yet: answers an error text and intResult 0.
    void RunSongBreakdownWizard(qint32 lngServiceItemID, QString& strErrorMessage,
                                qint16& intResult);
    // Verses of an item and its sequence (the breakdown wizard's store; also used by the
    // sample database and the tests). AddVerse appends; AddSongSequenceEntry appends.
    void AddVerse(qint32 lngServiceItemID, const QString& strVerseName, const QString& strVerseText,
                  bool blnIsChorus, QString& strErrorMessage, qint32& lngNewVerseID);
    void AddSongSequenceEntry(qint32 lngServiceItemID, qint32 lngVerseID, QString& strErrorMessage);
    void DeleteSongBreakdown(qint32 lngServiceItemID, QString& strErrorMessage);

    // ---- Points -------------------------------------------------------------------------
    void GetPoints(const QString& strWhereClause, qint16 intRecordsetType, QString& strErrorMessage,
                   std::unique_ptr<Recordset>& rs);
    // Appends a point (lngPosition 0) or puts it at that Position. lngNewPointID receives the id.
    void SavePoint(qint32 lngServiceItemID, const QString& strPointText, qint32 lngPosition,
                   const QString& strPointKey, const QString& strParentPointKey,
                   const QString& strPointNotes, QString& strErrorMessage, qint32& lngNewPointID);
    void SavePoint(qint32 lngServiceItemID, const QString& strPointText, qint32 lngPosition,
                   const QString& strPointKey, const QString& strParentPointKey,
                   const QString& strPointNotes, QString& strErrorMessage);
    void DeleteServiceItemPoints(qint32 lngServiceItemID, QString& strErrorMessage);
    // From the options row: ShowSubPointsOneByOne and PointDisplayMode (4, 5 or 6).
    void GetDefaultPointsDisplay(bool& blnRevealSubPoints, QString& strErrorMessage,
                                 qint16& intPointsMode);

    // ---- Images -------------------------------------------------------------------------
    void GetServiceItemImages(qint32 lngServiceItemID, QString& strErrorMessage,
                              std::unique_ptr<Recordset>& rs);
    void DeleteServiceItemImages(qint32 lngServiceItemID, QString& strErrorMessage);
    void AddServiceItemImage(qint32 lngServiceItemID, qint32 lngImageServiceItemID,
                             QString& strErrorMessage);
    // Finds the picture item (type 4) whose file is strFile, or makes one; 0 on failure.
    void AddImageServiceItem(const QString& strFile, qint32& lngServiceItemID);
    // The same for a bare file name inside the content folder.
    void AddImageServiceItemInFolder(const QString& strFileName, qint32& lngServiceItemID);

    // ---- Keywords -----------------------------------------------------------------------
    void GetKeywords(qint16 intRecordsetType, QString& strErrorMessage,
                     std::unique_ptr<Recordset>& rs);
    void GetServiceItemKeywords(const QString& strWhereClause, qint16 intRecordsetType,
                                QString& strErrorMessage, std::unique_ptr<Recordset>& rs);
    // Adds a keyword; an existing keyword of the same text (any letter case) is reused.
    void AddKeyword(const QString& strKeyword, QString& strErrorMessage, qint32& lngKeywordID);
    void AddServiceItemKeyword(qint32 lngServiceItemID, qint32 lngKeywordID,
                               QString& strErrorMessage);
    void DeleteServiceItemKeywords(qint32 lngServiceItemID, QString& strErrorMessage);

    // ---- Service item resources --------------------------------------------------------
    void GetServiceItemResources(const QString& strWhereClause, qint16 intRecordsetType,
                                 QString& strErrorMessage, std::unique_ptr<Recordset>& rs);
    void AddServiceItemResource(qint32 lngServiceItemID, const QString& strResourceName,
                                QString& strErrorMessage);
    void DeleteServiceItemResources(qint32 lngServiceItemID, QString& strErrorMessage);

    // ---- Service item prop bag ---------------------------------------------------------
    void GetServiceItemPropBag(const QString& strWhereClause, qint16 intRecordsetType,
                               QString& strErrorMessage, std::unique_ptr<Recordset>& rs);
    void DeleteServiceItemPropBag(qint32 lngServiceItemID, QString& strErrorMessage);
    void AddServiceItemPropBagItem(qint32 lngServiceItemID, qint32 lngPropServiceItemID,
                                   QString& strErrorMessage);

    // ---- Service item types ------------------------------------------------------------
    // Ordered by name, as the type combo shows them (type 0 "None" is not listed).
    void GetServiceItemTypes(QString& strErrorMessage, std::unique_ptr<Recordset>& rs);
    void GetServiceItemTypeDefaults(const QString& strWhereClause, qint16 intRecordsetType,
                                    QString& strErrorMessage, std::unique_ptr<Recordset>& rs);
    // strField: ByDefaultShowAtRuntime, ByDefaultIncludeTitleOnServiceSheet or
    // ByDefaultIncludeContentOnServiceSheet (any letter case); another name is refused.
    void SaveServiceItemTypeDefault(qint32 lngTypeID, const QString& strField, bool blnValue,
                                    QString& strErrorMessage);
    void GetDefaultShowAtRunTime(qint16 intServiceItemType, QString& strErrorMessage,
                                 bool& blnShowAtRunTime);
    void GetServiceItemTypeName(qint16 intTypeID, QString& strErrorMessage, QString& strTypeName);

    // ---- Templates ----------------------------------------------------------------------
    void GetTemplates(const QString& strWhereClause, qint16 intRecordsetType,
                      QString& strErrorMessage, std::unique_ptr<Recordset>& rs);
    // Updates the template lngTemplateID, or adds one when it is 0 (lngNewTemplateID gets the
    // id either way).
    void SaveTemplate(qint32 lngTemplateID, const QString& strDescription, bool blnUserCreated,
                      const QString& strOccasion, const QString& strAuthor, const QString& strNotes,
                      bool blnIsServiceTemplate, QString& strErrorMessage,
                      qint32& lngNewTemplateID);
    // Writes a new template document (a copy of the shipped service sheet with the church filled
    // in), adds its row and (with blnOpenDocument) opens it in Writer. Without Writer: an error
    // text, nothing created. Sheets are made from templates by TemplateFill.h.
    void NewTemplate(bool blnOpenDocument, QString& strErrorMessage, qint32& lngNewTemplateID);
    void DeleteTemplate(qint32 lngTemplateID, const QVariant& varReserved, QString& strErrorMessage,
                        QVariant& varReservedOut);
    void DeleteTemplate(qint32 lngTemplateID, QString& strErrorMessage);
    void TemplateShown(qint32 lngTemplateID);
    void GetTemplateOccasions(const QString& strWhere, QString& strErrorMessage,
                              std::unique_ptr<Recordset>& rs);
    // Opens the template's document in Writer (a template without one gets a starting
    // document; a shipped one is copied to the data folder first). A missing document or a
    // missing Writer: an error text, nothing changed.
    void OpenTemplate(qint32 lngTemplateID, bool blnReadOnly, const QString& strDocument,
                      const QVariant& varReserved, bool blnVisible, QString& strErrorMessage,
                      QVariant& varReservedOut);
    void OpenTemplate(qint32 lngTemplateID, QString& strErrorMessage);
    // Adds a template row (sample database, tests).
    void AddTemplate(const QString& strDescription, const QString& strOccasion,
                     const QString& strAuthor, const QString& strNotes, bool blnIsInBuilt,
                     bool blnIsServiceTemplate, const QString& strTemplateFilename,
                     QString& strErrorMessage, qint32& lngNewTemplateID);

    // ---- Short lists --------------------------------------------------------------------
    void GetShortLists(const QString& strWhereClause, QString& strErrorMessage,
                       std::unique_ptr<Recordset>& rs);
    void GetShortListsWhere(const QString& strWhereClause, QString& strErrorMessage,
                            std::unique_ptr<Recordset>& rs);
    // Service items joined with their type, keywords, points, the services that use them
    // (ServiceItemsInUse, Services) for the short list criteria; an item may repeat.
    void GetShortListCandidates(const QString& strWhereClause, QString& strErrorMessage,
                                std::unique_ptr<Recordset>& rs);
    void SaveShortList(qint32 lngShortListID, const QString& strDescription,
                       const QString& strCreatedBy, const QString& strNotes,
                       const QString& strContent, QString& strErrorMessage,
                       QVariant& varReservedOut);
    void SaveShortList(qint32 lngShortListID, const QString& strDescription,
                       const QString& strCreatedBy, const QString& strNotes,
                       const QString& strContent, QString& strErrorMessage);
    void NewShortListRecord(QString& strErrorMessage, qint32& lngNewShortListID);
    void DeleteShortListRecord(qint32 lngShortListID, const QVariant& varReserved,
                               QString& strErrorMessage, QVariant& varReservedOut);
    void DeleteShortListRecord(qint32 lngShortListID, QString& strErrorMessage);
    void ShortListShown(qint32 lngShortListID);
    void GetLastShownShortList(qint32& lngShortListID);

    // ---- Options and folders ------------------------------------------------------------
    // The one options row; editable with Edit/SetField/Update.
    void GetOptions(QString& strErrorMessage, std::unique_ptr<Recordset>& rs);
    // Without a trailing separator.
    void GetContentFolder(QString& strFolder);
    // With a trailing separator, so that a file name can be appended.
    void GetDataFolder(QString& strFolder);
    // The folder part of a full file name, with its trailing separator ("/a/b/c.pdb" gives
    // "/a/b/"); "\" counts as a separator too. Empty when the path holds no folder.
    void GetFolderOfPath(const QString& strPath, QString& strFolder);
    // One entry of a list that the options screen offers: its text and its item data, the
    // value that is stored when the entry is chosen. The storage layer has no user interface,
    // so it hands over the entries and the screen fills its own combo boxes with them.
    struct ListEntry {
        QString Text;
        QVariant ItemData;
    };
    // The transitions the projector window performs from one slide to the next, stored in
    // RunModeTransType, and their speeds, stored in RunModeTransSpeed. transCut changes the
    // picture at once and has no speed (its RunModeTransSpeed is stored empty).
    enum RunModeTransition : qint32 {
        transFade = 0,                 // the new slide fades in over the old one
        transDissolveThroughBlack = 1, // the old slide fades to black, then the new one fades in
        transSlideLeft = 2,            // the new slide pushes in from the right, moving left
        transSlideRight = 3,           // the new slide pushes in from the left, moving right
        transSlideUp = 4,              // the new slide pushes in from below, moving up
        transSlideDown = 5,            // the new slide pushes in from above, moving down
        transWipe = 6,                 // the new slide is uncovered from left to right
        transCut = 38,                 // no animation
    };
    enum RunModeTransitionSpeed : qint32 { speedSlow = 0, speedMedium = 1, speedFast = 2 };
    // The duration in milliseconds of a stored speed: slow 1000, medium 600, fast 300; any
    // other value (empty, unknown) counts as medium.
    static qint32 TransitionDuration(const QVariant& varSpeed);
    // Transitions: "Cut (no transition)", "Fade", "Dissolve through black", "Slide left",
    // "Slide right", "Slide up", "Slide down", "Wipe", with the numbers above as item data.
    // Speeds: "Slow", "Medium", "Fast", with speedSlow..speedFast as item data.
    void FillTransitionCombos(QList<ListEntry>& Transitions, QList<ListEntry>& Speeds,
                              QString& strErrorMessage);
    // "(None)" with item data 0, then every picture item (types 4 and 5) by description, with
    // its ServiceItemID as item data.
    void FillBackgroundImageCombo(QList<ListEntry>& BackgroundImages, QString& strErrorMessage);
    // The file name of the church logo's copy in a folder: "ChurchLogo." + the extension of
    // strFileName (the text after its last ".").
    static QString ChurchLogoName(const QString& strFileName);
    // Copies a picture into the data folder as ChurchLogoName(strFileName), replacing a copy of
    // that name; copies of other extensions stay. A missing file or one that is not a picture
    // is refused with an error text and nothing is copied.
    void CopyChurchLogo(const QString& strFileName, QString& strErrorMessage);

    // ---- Import and export (docs/exchange-format.md) ------------------------------------
    // What import, export and printing ask of the user goes through these, which the controls
    // route through their Platform. Without them the operations that need them answer an
    // error text.
    struct ExchangeDialogs {
        // The file to import, or to export into; empty for Cancel.
        std::function<QString(const QString& strFilter, const QString& strTitle)> ChooseFileToOpen;
        std::function<QString(const QString& strFilter, const QString& strTitle,
                              const QString& strFileName)>
            ChooseFileToSave;
        // Tells the user what an import or an export did.
        std::function<void(const QString& strText, const QString& strTitle)> Tell;
        // Shows a printed sheet (a PDF file) in a preview that can print or save it.
        std::function<void(const QString& strPdfFile, const QString& strTitle)> ShowSheet;
    };
    static void SetExchangeDialogs(ExchangeDialogs dialogs);
    // Imports a Corvantis export file, an OpenLyrics song or the plain text of a song (title on
    // the first line, parts separated by blank lines), all or nothing, and tells how many items
    // and services came in and which were there already (the same title and words): those are
    // not added twice. strParam: the file; empty asks for it.
    void ImportFile(const QString& strParam, QString& strErrorMessage);
    // What the last import brought.
    struct ImportReport {
        QString File;
        qint32 ItemsAdded = 0;
        qint32 ServicesAdded = 0;
        QStringList AlreadyThere;         // titles of items not added twice
        QStringList ServicesAlreadyThere; // names of services not added twice
    };
    static ImportReport LastImport();
    // varIDs: ids separated by "," or ";". Asks for the file to write.
    void ExportServices(const QVariant& varIDs, const QString& strDescription,
                        QString& strErrorMessage);
    void ExportServiceItems(const QVariant& varIDs, const QString& strDescription,
                            QString& strErrorMessage);
    // The same into a named file, without asking or telling.
    void ExportServicesToFile(const QString& strIDs, const QString& strDescription,
                              const QString& strFile, QString& strErrorMessage);
    void ExportServiceItemsToFile(const QString& strIDs, const QString& strDescription,
                                  const QString& strFile, QString& strErrorMessage);
    // Runs one service item on its own (RunServiceItem): the application installs what does it.
    using ServiceItemRunner =
        std::function<bool(qint32 lngServiceItemID, QString& strErrorMessage)>;
    static void SetServiceItemRunner(ServiceItemRunner runner);

    // ---- Word processor (LibreOffice Writer) and reports ---------------------------------
    // Printed sheets are PDF files made by Qt: True when a sheet can be written (the folder of
    // temporary files takes a file). No word processor is needed.
    void IsWordInstalled(const QString& strUnusedA, const QString& strUnusedB, bool& blnInstalled);
    // True when soffice or libreoffice is found on the PATH.
    void IsWriterInstalled(bool& blnInstalled);
    // True when a soffice of this user is running.
    void IsWordRunning(bool& blnIsRunning);
    // How a document is handed to Writer (program, file; true when started). The default
    // starts the program detached; the controls route it through their Platform.
    using DocumentLauncher = std::function<bool(const QString& strProgram, const QString& strFile)>;
    static void SetDocumentLauncher(DocumentLauncher launcher);
    // Writes the list of the fields a template may hold into a short document and opens it in
    // Writer. Without Writer: an error text.
    void AddBrowserButtonsToWord(QString& strErrorMessage);
    // Fills the rich text box with a file: a .txt read as UTF-8 (or Windows-1252 when its
    // bytes are not UTF-8); a .rtf, .doc, .docx or .odt converted by LibreOffice Writer
    // (OfficeConversion.h) with its basic formatting. A missing file, another extension, a
    // damaged document, no LibreOffice or a conversion over its time limit: an error text,
    // and the box is left as it was.
    void LoadFileIntoRichText(const QString& strFile, QTextEdit* objRichText,
                              QString& strErrorMessage, QVariant& varReservedOut);
    void LoadFileIntoRichText(const QString& strFile, QTextEdit* objRichText,
                              QString& strErrorMessage);
    // The service sheet, the sheet of one item and the operator's sheet of a service's run
    // order with the keys, each made as a PDF and shown through ShowSheet.
    void PrintService(qint32 lngServiceID, QString& strErrorMessage);
    void PrintServiceItem(qint32 lngServiceItemID, QString& strErrorMessage);
    void PrintServiceShortCuts(qint32 lngServiceID, QString& strErrorMessage);

    // ---- Text ---------------------------------------------------------------------------
    // Converts both ways: a text holding "@@" gets apostrophes in their place (display form);
    // a text without "@@" that holds apostrophes gets "@@" in their place (stored form).
    void DecodeStoredText(const QString& strText, QString& strErrorMessage, QString& strResult);
    // True when the text reads as lines (verse, a litany, a list) rather than running sentences:
    // it has at least two non-empty lines, none of them longer than 80 characters, and their
    // average length is at most 60 characters. A paragraph is one long line (or lines longer
    // than that), so it answers False; so does a text of one line.
    void TextIsLineStructured(const QString& strText, QString& strErrorMessage, bool& blnResult);

private:
    DataAccess();
    ~DataAccess();

    friend class DataAccessPrivate;
    bool EnsureOpen(QString& strErrorMessage);

    QString m_connectionName;
    QString m_databasePath;
    QString m_contentFolder;
    bool m_inTransaction = false;
};
