-- Corvantis.pdb: the tables of the store, their keys and links, and the seed rows.
-- Booleans are stored 0 and 1, dates as text 'YYYY-MM-DD HH:MM:SS'. Position orders the rows
-- of a list from 1. Declared types BOOLEAN and DATETIME tell the data library how to hand the
-- values back (bool and QDateTime). Statements are separated by a line holding only "--;".

CREATE TABLE ServiceItemTypes (
    ServiceItemTypeID INTEGER PRIMARY KEY,
    ServiceItemTypeName TEXT NOT NULL,
    ByDefaultShowAtRuntime BOOLEAN NOT NULL DEFAULT 1,
    ByDefaultIncludeTitleOnServiceSheet BOOLEAN NOT NULL DEFAULT 1,
    ByDefaultIncludeContentOnServiceSheet BOOLEAN NOT NULL DEFAULT 0
);
--;
CREATE TABLE ServiceItems (
    ServiceItemID INTEGER PRIMARY KEY AUTOINCREMENT,
    ServiceItemTypeID INTEGER NOT NULL DEFAULT 0 REFERENCES ServiceItemTypes (ServiceItemTypeID),
    ServiceItemDescription TEXT,
    TextViewMode INTEGER NOT NULL DEFAULT 0,
    RevealSubPointsOneByOne BOOLEAN NOT NULL DEFAULT 0,
    ServiceItemMusic TEXT,
    StartMusicPrompt TEXT,
    ServiceItemSource TEXT,
    ServiceItemContent TEXT,
    ServiceItemFilename TEXT,
    ServiceItemFileDescription TEXT,
    ServiceItemNotes TEXT,
    ServiceItemProvider TEXT,
    ServiceItemSongKey TEXT,
    ServiceItemMelody TEXT,
    ServiceItemCopyrightDetails TEXT,
    ServiceItemOriginalLocation TEXT,
    ServiceItemDateCreated DATETIME NOT NULL,
    ChangeImageEveryXSeconds INTEGER NOT NULL DEFAULT 0,
    HideSIDetails BOOLEAN NOT NULL DEFAULT 0,
    RunAsPointsList BOOLEAN NOT NULL DEFAULT 0,
    LinesAtATime INTEGER NOT NULL DEFAULT 0,
    SecondsToRun INTEGER NOT NULL DEFAULT 0
);
--;
CREATE INDEX ServiceItemsByType ON ServiceItems (ServiceItemTypeID);
--;
CREATE INDEX ServiceItemsByDate ON ServiceItems (ServiceItemDateCreated);
--;
CREATE TABLE Services (
    ServiceID INTEGER PRIMARY KEY AUTOINCREMENT,
    ServiceName TEXT,
    ServiceType TEXT,
    ServiceTheme TEXT,
    ServiceProvider TEXT,
    ServiceNotes TEXT,
    ServiceDateCreated DATETIME NOT NULL,
    ServiceDateLastDelivered DATETIME
);
--;
CREATE TABLE ServiceContents (
    ServiceContentID INTEGER PRIMARY KEY AUTOINCREMENT,
    ServiceID INTEGER NOT NULL REFERENCES Services (ServiceID) ON DELETE CASCADE,
    Position INTEGER NOT NULL,
    ServiceItemID INTEGER NOT NULL REFERENCES ServiceItems (ServiceItemID) ON DELETE CASCADE,
    ShowAtRunTime BOOLEAN NOT NULL DEFAULT 1,
    Length TEXT
);
--;
CREATE INDEX ServiceContentsByService ON ServiceContents (ServiceID, Position);
--;
CREATE INDEX ServiceContentsByItem ON ServiceContents (ServiceItemID);
--;
CREATE VIEW ServiceItemsInUse AS SELECT DISTINCT ServiceItemID FROM ServiceContents;
--;
CREATE TABLE ServicePropBag (
    ServicePropBagID INTEGER PRIMARY KEY AUTOINCREMENT,
    ServiceID INTEGER NOT NULL REFERENCES Services (ServiceID) ON DELETE CASCADE,
    Position INTEGER NOT NULL,
    PropServiceItemID INTEGER NOT NULL REFERENCES ServiceItems (ServiceItemID) ON DELETE CASCADE
);
--;
CREATE INDEX ServicePropBagByService ON ServicePropBag (ServiceID, Position);
--;
CREATE INDEX ServicePropBagByItem ON ServicePropBag (PropServiceItemID);
--;
CREATE TABLE ServiceResources (
    ResourceID INTEGER PRIMARY KEY AUTOINCREMENT,
    ServiceID INTEGER NOT NULL REFERENCES Services (ServiceID) ON DELETE CASCADE,
    ResourceName TEXT
);
--;
CREATE INDEX ServiceResourcesByService ON ServiceResources (ServiceID);
--;
CREATE TABLE KeyWords (
    KeywordID INTEGER PRIMARY KEY AUTOINCREMENT,
    KeywordText TEXT NOT NULL
);
--;
CREATE TABLE ServiceItemKeywords (
    ServiceItemID INTEGER NOT NULL REFERENCES ServiceItems (ServiceItemID) ON DELETE CASCADE,
    KeywordID INTEGER NOT NULL REFERENCES KeyWords (KeywordID) ON DELETE CASCADE,
    PRIMARY KEY (ServiceItemID, KeywordID)
);
--;
CREATE INDEX ServiceItemKeywordsByKeyword ON ServiceItemKeywords (KeywordID);
--;
CREATE TABLE ServiceItemResources (
    ServiceItemResourceID INTEGER PRIMARY KEY AUTOINCREMENT,
    ServiceItemID INTEGER NOT NULL REFERENCES ServiceItems (ServiceItemID) ON DELETE CASCADE,
    ServiceItemResourceName TEXT
);
--;
CREATE INDEX ServiceItemResourcesByItem ON ServiceItemResources (ServiceItemID);
--;
CREATE TABLE ServiceItemPropBag (
    ServiceItemPropBagID INTEGER PRIMARY KEY AUTOINCREMENT,
    ServiceItemID INTEGER NOT NULL REFERENCES ServiceItems (ServiceItemID) ON DELETE CASCADE,
    Position INTEGER NOT NULL,
    PropServiceItemID INTEGER NOT NULL REFERENCES ServiceItems (ServiceItemID) ON DELETE CASCADE
);
--;
CREATE INDEX ServiceItemPropBagByItem ON ServiceItemPropBag (ServiceItemID, Position);
--;
CREATE INDEX ServiceItemPropBagByProp ON ServiceItemPropBag (PropServiceItemID);
--;
CREATE TABLE ServiceItemPoints (
    ServiceItemPointID INTEGER PRIMARY KEY AUTOINCREMENT,
    ServiceItemID INTEGER NOT NULL REFERENCES ServiceItems (ServiceItemID) ON DELETE CASCADE,
    Position INTEGER NOT NULL,
    PointKey TEXT,
    ParentPointKey TEXT,
    PointText TEXT,
    PointNotes TEXT
);
--;
CREATE INDEX ServiceItemPointsByItem ON ServiceItemPoints (ServiceItemID, Position);
--;
CREATE TABLE ServiceItemImages (
    ServiceItemImageID INTEGER PRIMARY KEY AUTOINCREMENT,
    ServiceItemID INTEGER NOT NULL REFERENCES ServiceItems (ServiceItemID) ON DELETE CASCADE,
    Position INTEGER NOT NULL,
    ImageServiceItemID INTEGER NOT NULL REFERENCES ServiceItems (ServiceItemID) ON DELETE CASCADE
);
--;
CREATE INDEX ServiceItemImagesByItem ON ServiceItemImages (ServiceItemID, Position);
--;
CREATE INDEX ServiceItemImagesByImage ON ServiceItemImages (ImageServiceItemID);
--;
CREATE TABLE Verses (
    VerseID INTEGER PRIMARY KEY AUTOINCREMENT,
    ServiceItemID INTEGER NOT NULL REFERENCES ServiceItems (ServiceItemID) ON DELETE CASCADE,
    VerseName TEXT,
    VerseText TEXT,
    IsChorus BOOLEAN NOT NULL DEFAULT 0
);
--;
CREATE INDEX VersesByItem ON Verses (ServiceItemID);
--;
CREATE TABLE SongSequence (
    SongSequenceID INTEGER PRIMARY KEY AUTOINCREMENT,
    ServiceItemID INTEGER NOT NULL REFERENCES ServiceItems (ServiceItemID) ON DELETE CASCADE,
    Position INTEGER NOT NULL,
    VerseID INTEGER NOT NULL REFERENCES Verses (VerseID) ON DELETE CASCADE
);
--;
CREATE INDEX SongSequenceByItem ON SongSequence (ServiceItemID, Position);
--;
CREATE TABLE Templates (
    TemplateID INTEGER PRIMARY KEY AUTOINCREMENT,
    TemplateDescription TEXT,
    TemplateOccasion TEXT,
    TemplateAuthor TEXT,
    TemplateNotes TEXT,
    TemplateDateCreated DATETIME NOT NULL,
    IsInBuilt BOOLEAN NOT NULL DEFAULT 0,
    IsServiceTemplate BOOLEAN NOT NULL DEFAULT 1,
    TemplateFilename TEXT
);
--;
CREATE TABLE ShortLists (
    ShortListID INTEGER PRIMARY KEY AUTOINCREMENT,
    ShortListDescription TEXT,
    ShortListDateCreated DATETIME NOT NULL,
    ShortListCreatedBy TEXT,
    ShortListContent TEXT,
    ShortListNotes TEXT
);
--;
CREATE TABLE Options (
    OptionsID INTEGER PRIMARY KEY CHECK (OptionsID = 1),
    AutoPlayMusic BOOLEAN NOT NULL DEFAULT 0,
    AlwaysShowGalleryToolbars BOOLEAN NOT NULL DEFAULT 1,
    IncludePropsOnImpExp BOOLEAN NOT NULL DEFAULT 1,
    DefaultBackgroundImage,
    PointDisplayMode INTEGER NOT NULL DEFAULT 5,
    ShowSubPointsOneByOne BOOLEAN NOT NULL DEFAULT 0,
    RunModeTransType INTEGER NOT NULL DEFAULT 0,
    RunModeTransSpeed INTEGER NOT NULL DEFAULT 1,
    RunModeFontName TEXT NOT NULL DEFAULT 'DejaVu Sans',
    RunModeFontBold BOOLEAN NOT NULL DEFAULT 1,
    RunModeFontItalic BOOLEAN NOT NULL DEFAULT 0,
    RunModeFontSize REAL NOT NULL DEFAULT 36,
    RunModeFontColor INTEGER NOT NULL DEFAULT 16777215,
    RunModeBackColor INTEGER NOT NULL DEFAULT 0,
    ShowDescriptionDetailsAtRunTime BOOLEAN NOT NULL DEFAULT 1,
    ShowSourceAtRunTime BOOLEAN NOT NULL DEFAULT 1,
    ShowCopyrightDetailsAtRunTime BOOLEAN NOT NULL DEFAULT 1,
    ShowLocationDetailsAtRunTime BOOLEAN NOT NULL DEFAULT 0,
    ChurchName TEXT,
    ChurchPastorName TEXT,
    ChurchAddress1 TEXT,
    ChurchAddress2 TEXT,
    ChurchAddress3 TEXT,
    ChurchAddress4 TEXT,
    ChurchPhone1 TEXT,
    ChurchPhone2 TEXT,
    ChurchEmail TEXT,
    ChurchWebSite TEXT,
    ChurchMissionStatement TEXT,
    ChurchLogoFilename TEXT,
    ChurchLogoFileDescription TEXT
);
--;
-- What the program remembers per database (the short list shown last).
CREATE TABLE StoreState (
    StateKey TEXT PRIMARY KEY,
    StateValue
);
--;
-- Types known to the program by id: 0 none, 4 and 5 pictures, 10 music, 11 points only,
-- 12 PowerPoint, 16 responsive reading from a file, 17 song or hymn. The text types take the
-- free ids from 1 to 15; 18 and 19 stay free (the gallery's folder pictures use those numbers).
INSERT INTO ServiceItemTypes VALUES
    (0, 'None', 1, 1, 0),
    (1, 'Prayer', 1, 1, 0),
    (2, 'Reading', 1, 1, 1),
    (3, 'Meditation', 1, 1, 0),
    (4, 'Picture', 1, 0, 0),
    (5, 'Image', 1, 0, 0),
    (6, 'Message', 1, 1, 0),
    (7, 'Children', 1, 1, 0),
    (8, 'Response', 1, 1, 1),
    (9, 'Story', 1, 1, 0),
    (10, 'Music', 1, 1, 0),
    (11, 'Points List', 1, 1, 1),
    (12, 'PowerPoint', 1, 1, 0),
    (13, 'Creed', 1, 1, 1),
    (14, 'Announcement', 0, 1, 0),
    (15, 'Miscellaneous', 1, 1, 0),
    (16, 'Responsive Reading', 1, 1, 1),
    (17, 'Hymn', 1, 1, 0);
--;
-- Row 1: the Blank item, an empty slide that a service may hold any number of times.
INSERT INTO ServiceItems (ServiceItemID, ServiceItemTypeID, ServiceItemDescription,
                          ServiceItemDateCreated)
    VALUES (1, 0, 'Blank', '2000-01-01 00:00:00');
--;
INSERT INTO Options (OptionsID) VALUES (1);
--;
-- The two in-built templates. Their documents ship with the program and are stored by their
-- bare file name; each is copied to the templates folder of the data folder when first needed.
INSERT INTO Templates (TemplateDescription, TemplateOccasion, TemplateAuthor, TemplateNotes,
                       TemplateDateCreated, IsInBuilt, IsServiceTemplate, TemplateFilename)
    VALUES ('Order of Service', 'Sunday', 'Corvantis',
            'The order of a service: its name, theme and date, then one line for each row.',
            '2026-01-01 00:00:00', 1, 1, 'ServiceSheet.fodt'),
           ('Song Sheet', 'Sunday', 'Corvantis',
            'One song or text: its title and words, with its source and copyright.',
            '2026-01-01 00:00:00', 1, 0, 'SongSheet.fodt');
