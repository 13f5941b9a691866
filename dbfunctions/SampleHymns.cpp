#include "SampleContent.h"

// Hymns of the sample database: words and tunes in the public domain.

QList<SampleContent::Hymn> SampleContent::Hymns() {
    return {
        {"Amazing Grace",
         "John Newton (1779)",
         "New Britain",
         "G",
         "grace,salvation,testimony",
         {"Amazing grace! how sweet the sound\nThat saved a wretch like me!\nI once was lost, "
          "but now am found,\nWas blind, but now I see.",
          "'Twas grace that taught my heart to fear,\nAnd grace my fears relieved;\nHow precious "
          "did that grace appear\nThe hour I first believed!",
          "Through many dangers, toils and snares,\nI have already come;\n'Tis grace hath brought "
          "me safe thus far,\nAnd grace will lead me home.",
          "When we've been there ten thousand years,\nBright shining as the sun,\nWe've no less "
          "days to sing God's praise\nThan when we'd first begun."},
         {}},
        {"Holy, Holy, Holy",
         "Reginald Heber (1826)",
         "Nicaea",
         "D",
         "praise,trinity,morning",
         {"Holy, holy, holy! Lord God Almighty!\nEarly in the morning our song shall rise to "
          "thee;\nHoly, holy, holy! merciful and mighty!\nGod in three persons, blessed Trinity!",
          "Holy, holy, holy! all the saints adore thee,\nCasting down their golden crowns around "
          "the glassy sea;\nCherubim and seraphim falling down before thee,\nWhich wert, and art, "
          "and evermore shalt be.",
          "Holy, holy, holy! though the darkness hide thee,\nThough the eye of sinful man thy "
          "glory may not see;\nOnly thou art holy; there is none beside thee,\nPerfect in power, "
          "in love, and purity.",
          "Holy, holy, holy! Lord God Almighty!\nAll thy works shall praise thy name, in earth, "
          "and sky, and sea;\nHoly, holy, holy! merciful and mighty!\nGod in three persons, "
          "blessed Trinity!"},
         {}},
        {"Abide with Me",
         "Henry Francis Lyte (1847)",
         "Eventide",
         "Eb",
         "evening,comfort,funeral",
         {"Abide with me; fast falls the eventide;\nThe darkness deepens; Lord, with me "
          "abide.\nWhen other helpers fail and comforts flee,\nHelp of the helpless, O abide with "
          "me.",
          "Swift to its close ebbs out life's little day;\nEarth's joys grow dim; its glories pass "
          "away;\nChange and decay in all around I see;\nO thou who changest not, abide with me.",
          "I need thy presence every passing hour;\nWhat but thy grace can foil the tempter's "
          "power?\nWho, like thyself, my guide and stay can be?\nThrough cloud and sunshine, Lord, "
          "abide with me.",
          "Hold thou thy cross before my closing eyes;\nShine through the gloom and point me to "
          "the skies;\nHeaven's morning breaks, and earth's vain shadows flee;\nIn life, in "
          "death, O Lord, abide with me."},
         {}},
        {"Be Thou My Vision",
         "Irish, 8th century; tr. Mary Byrne (1905), versified Eleanor Hull "
         "(1912)",
         "Slane",
         "Eb",
         "devotion,guidance,morning",
         {"Be thou my vision, O Lord of my heart;\nNaught be all else to me, save that thou "
          "art;\nThou my best thought, by day or by night,\nWaking or sleeping, thy presence my "
          "light.",
          "Be thou my wisdom, and thou my true word;\nI ever with thee and thou with me, "
          "Lord;\nThou my great Father, I thy true son;\nThou in me dwelling, and I with thee "
          "one.",
          "Riches I heed not, nor man's empty praise,\nThou mine inheritance, now and "
          "always:\nThou and thou only, first in my heart,\nHigh King of heaven, my treasure thou "
          "art.",
          "High King of heaven, my victory won,\nMay I reach heaven's joys, O bright heaven's "
          "Sun!\nHeart of my own heart, whatever befall,\nStill be my vision, O Ruler of all."},
         {}},
        {"Blessed Assurance",
         "Fanny Crosby (1873)",
         "Assurance",
         "D",
         "testimony,praise,joy",
         {"Blessed assurance, Jesus is mine!\nO what a foretaste of glory divine!\nHeir of "
          "salvation, purchase of God,\nBorn of his Spirit, washed in his blood.",
          "Perfect submission, perfect delight,\nVisions of rapture now burst on my sight;\nAngels "
          "descending bring from above\nEchoes of mercy, whispers of love.",
          "Perfect submission, all is at rest;\nI in my Saviour am happy and blest,\nWatching and "
          "waiting, looking above,\nFilled with his goodness, lost in his love."},
         "This is my story, this is my song,\nPraising my Saviour all the day long;\nThis is my "
         "story, this is my song,\nPraising my Saviour all the day long."},
        {"Come, Thou Fount of Every Blessing",
         "Robert Robinson (1758)",
         "Nettleton",
         "D",
         "grace,praise,commitment",
         {"Come, thou Fount of every blessing,\nTune my heart to sing thy grace;\nStreams of "
          "mercy, never ceasing,\nCall for songs of loudest praise.",
          "Here I raise my Ebenezer;\nHither by thy help I'm come;\nAnd I hope, by thy good "
          "pleasure,\nSafely to arrive at home.",
          "O to grace how great a debtor\nDaily I'm constrained to be!\nLet thy goodness, like a "
          "fetter,\nBind my wandering heart to thee."},
         {}},
        {"Crown Him with Many Crowns",
         "Matthew Bridges (1851)",
         "Diademata",
         "D",
         "praise,kingship,easter,ascension",
         {"Crown him with many crowns,\nThe Lamb upon his throne;\nHark! how the heavenly anthem "
          "drowns\nAll music but its own.",
          "Awake, my soul, and sing\nOf him who died for thee,\nAnd hail him as thy matchless "
          "King\nThrough all eternity.",
          "Crown him the Lord of love;\nBehold his hands and side,\nRich wounds, yet visible "
          "above,\nIn beauty glorified."},
         {}},
        {"It Is Well with My Soul",
         "Horatio G. Spafford (1873)",
         "Ville du Havre",
         "C",
         "comfort,peace,trust,funeral",
         {"When peace, like a river, attendeth my way,\nWhen sorrows like sea billows "
          "roll;\nWhatever my lot, thou hast taught me to say,\nIt is well, it is well with my "
          "soul.",
          "Though Satan should buffet, though trials should come,\nLet this blest assurance "
          "control,\nThat Christ hath regarded my helpless estate,\nAnd hath shed his own blood "
          "for my soul.",
          "And, Lord, haste the day when my faith shall be sight,\nThe clouds be rolled back as a "
          "scroll;\nThe trump shall resound, and the Lord shall descend,\nEven so, it is well with "
          "my soul."},
         "It is well with my soul,\nIt is well, it is well with my soul."},
        {"A Mighty Fortress Is Our God",
         "Martin Luther (1529); tr. Frederick H. Hedge (1853)",
         "Ein feste Burg",
         "C",
         "reformation,strength,trust",
         {"A mighty fortress is our God,\nA bulwark never failing;\nOur helper he amid the "
          "flood\nOf mortal ills prevailing.\nFor still our ancient foe\nDoth seek to work us "
          "woe;\nHis craft and power are great,\nAnd, armed with cruel hate,\nOn earth is not his "
          "equal.",
          "Did we in our own strength confide,\nOur striving would be losing;\nWere not the right "
          "man on our side,\nThe man of God's own choosing.\nDost ask who that may be?\nChrist "
          "Jesus, it is he;\nLord Sabaoth his name,\nFrom age to age the same,\nAnd he must win "
          "the battle."},
         {}},
        {"O God, Our Help in Ages Past",
         "Isaac Watts (1719)",
         "St. Anne",
         "C",
         "remembrance,trust,new year",
         {"O God, our help in ages past,\nOur hope for years to come,\nOur shelter from the "
          "stormy blast,\nAnd our eternal home.",
          "Under the shadow of thy throne\nThy saints have dwelt secure;\nSufficient is thine arm "
          "alone,\nAnd our defence is sure.",
          "Before the hills in order stood,\nOr earth received her frame,\nFrom everlasting thou "
          "art God,\nTo endless years the same.",
          "O God, our help in ages past,\nOur hope for years to come,\nBe thou our guard while "
          "troubles last,\nAnd our eternal home."},
         {}},
        {"All Hail the Power of Jesus' Name",
         "Edward Perronet (1779)",
         "Coronation",
         "G",
         "praise,kingship",
         {"All hail the power of Jesus' name!\nLet angels prostrate fall;\nBring forth the royal "
          "diadem,\nAnd crown him Lord of all.",
          "Ye chosen seed of Israel's race,\nYe ransomed from the fall,\nHail him who saves you by "
          "his grace,\nAnd crown him Lord of all.",
          "Let every kindred, every tribe,\nOn this terrestrial ball,\nTo him all majesty "
          "ascribe,\nAnd crown him Lord of all."},
         {}},
        {"Joyful, Joyful, We Adore Thee",
         "Henry van Dyke (1907)",
         "Hymn to Joy (Beethoven)",
         "G",
         "praise,joy,creation",
         {"Joyful, joyful, we adore thee,\nGod of glory, Lord of love;\nHearts unfold like "
          "flowers before thee,\nOpening to the sun above.\nMelt the clouds of sin and "
          "sadness;\nDrive the dark of doubt away;\nGiver of immortal gladness,\nFill us with the "
          "light of day!",
          "All thy works with joy surround thee,\nEarth and heaven reflect thy rays,\nStars and "
          "angels sing around thee,\nCenter of unbroken praise.\nField and forest, vale and "
          "mountain,\nFlowery meadow, flashing sea,\nSinging bird and flowing fountain\nCall us to "
          "rejoice in thee."},
         {}},
        {"Praise to the Lord, the Almighty",
         "Joachim Neander (1680); tr. Catherine Winkworth "
         "(1863)",
         "Lobe den Herren",
         "F",
         "praise,morning",
         {"Praise to the Lord, the Almighty, the King of creation!\nO my soul, praise him, for "
          "he is thy health and salvation!\nAll ye who hear,\nNow to his temple draw "
          "near;\nJoin me in glad adoration!",
          "Praise to the Lord, who o'er all things so wondrously reigneth,\nShieldeth thee under "
          "his wings, yea, so gently sustaineth!\nHast thou not seen\nHow thy desires e'er have "
          "been\nGranted in what he ordaineth?"},
         {}},
        {"Rock of Ages",
         "Augustus M. Toplady (1763)",
         "Toplady",
         "Bb",
         "salvation,cross,lent",
         {"Rock of Ages, cleft for me,\nLet me hide myself in thee;\nLet the water and the "
          "blood,\nFrom thy wounded side which flowed,\nBe of sin the double cure,\nSave from "
          "wrath and make me pure.",
          "Not the labours of my hands\nCan fulfil thy law's demands;\nCould my zeal no respite "
          "know,\nCould my tears for ever flow,\nAll for sin could not atone;\nThou must save, "
          "and thou alone.",
          "While I draw this fleeting breath,\nWhen mine eyes shall close in death,\nWhen I soar "
          "to worlds unknown,\nSee thee on thy judgment throne,\nRock of Ages, cleft for me,\nLet "
          "me hide myself in thee."},
         {}},
        {"What a Friend We Have in Jesus",
         "Joseph M. Scriven (1855)",
         "Converse",
         "F",
         "prayer,comfort,friendship",
         {"What a friend we have in Jesus,\nAll our sins and griefs to bear!\nWhat a privilege "
          "to carry\nEverything to God in prayer!\nO what peace we often forfeit,\nO what "
          "needless pain we bear,\nAll because we do not carry\nEverything to God in prayer!",
          "Have we trials and temptations?\nIs there trouble anywhere?\nWe should never be "
          "discouraged;\nTake it to the Lord in prayer.\nCan we find a friend so faithful\nWho "
          "will all our sorrows share?\nJesus knows our every weakness;\nTake it to the Lord in "
          "prayer."},
         {}},
        {"When I Survey the Wondrous Cross",
         "Isaac Watts (1707)",
         "Rockingham",
         "D",
         "cross,lent,good friday,commitment",
         {"When I survey the wondrous cross\nOn which the Prince of glory died,\nMy richest gain "
          "I count but loss,\nAnd pour contempt on all my pride.",
          "Forbid it, Lord, that I should boast,\nSave in the death of Christ my God;\nAll the "
          "vain things that charm me most,\nI sacrifice them to his blood.",
          "See from his head, his hands, his feet,\nSorrow and love flow mingled down;\nDid e'er "
          "such love and sorrow meet,\nOr thorns compose so rich a crown?",
          "Were the whole realm of nature mine,\nThat were an offering far too small;\nLove so "
          "amazing, so divine,\nDemands my soul, my life, my all."},
         {}},
        {"Now Thank We All Our God",
         "Martin Rinkart (1636); tr. Catherine Winkworth (1858)",
         "Nun danket",
         "F",
         "thanksgiving,harvest,praise",
         {"Now thank we all our God\nWith heart and hands and voices,\nWho wondrous things hath "
          "done,\nIn whom his world rejoices;\nWho from our mothers' arms\nHath blessed us on our "
          "way\nWith countless gifts of love,\nAnd still is ours today.",
          "O may this bounteous God\nThrough all our life be near us,\nWith ever joyful "
          "hearts\nAnd blessed peace to cheer us;\nAnd keep us in his grace,\nAnd guide us when "
          "perplexed,\nAnd free us from all ills\nIn this world and the next."},
         {}},
        {"The Church's One Foundation",
         "Samuel J. Stone (1866)",
         "Aurelia",
         "Eb",
         "church,unity,foundation",
         {"The Church's one foundation\nIs Jesus Christ her Lord;\nShe is his new creation\nBy "
          "water and the word:\nFrom heaven he came and sought her\nTo be his holy bride;\nWith "
          "his own blood he bought her,\nAnd for her life he died.",
          "Elect from every nation,\nYet one o'er all the earth,\nHer charter of salvation\nOne "
          "Lord, one faith, one birth;\nOne holy name she blesses,\nPartakes one holy food,\nAnd "
          "to one hope she presses,\nWith every grace endued."},
         {}},
        {"Just As I Am",
         "Charlotte Elliott (1835)",
         "Woodworth",
         "Eb",
         "invitation,commitment,grace",
         {"Just as I am, without one plea,\nBut that thy blood was shed for me,\nAnd that thou "
          "bidst me come to thee,\nO Lamb of God, I come, I come.",
          "Just as I am, and waiting not\nTo rid my soul of one dark blot,\nTo thee whose blood "
          "can cleanse each spot,\nO Lamb of God, I come, I come.",
          "Just as I am, thou wilt receive,\nWilt welcome, pardon, cleanse, relieve;\nBecause thy "
          "promise I believe,\nO Lamb of God, I come, I come."},
         {}},
        {"Jesus Loves Me",
         "Anna B. Warner (1860)",
         "Jesus Loves Me (William B. Bradbury)",
         "C",
         "children,love",
         {"Jesus loves me! this I know,\nFor the Bible tells me so;\nLittle ones to him "
          "belong;\nThey are weak, but he is strong.",
          "Jesus loves me! he who died\nHeaven's gate to open wide;\nHe will wash away my "
          "sin,\nLet his little child come in."},
         "Yes, Jesus loves me!\nYes, Jesus loves me!\nYes, Jesus loves me!\nThe Bible tells me "
         "so."},
        {"Onward, Christian Soldiers",
         "Sabine Baring-Gould (1865)",
         "St. Gertrude",
         "Eb",
         "mission,courage,church",
         {"Onward, Christian soldiers,\nMarching as to war,\nWith the cross of Jesus\nGoing on "
          "before.\nChrist, the royal Master,\nLeads against the foe;\nForward into battle\nSee "
          "his banners go!",
          "Like a mighty army\nMoves the Church of God;\nBrothers, we are treading\nWhere the "
          "saints have trod.\nWe are not divided,\nAll one body we,\nOne in hope and "
          "doctrine,\nOne in charity."},
         "Onward, Christian soldiers,\nMarching as to war,\nWith the cross of Jesus\nGoing on "
         "before."},
        {"All Creatures of Our God and King",
         "Francis of Assisi (1225); tr. William H. Draper "
         "(1919)",
         "Lasst uns erfreuen",
         "D",
         "creation,praise,harvest",
         {"All creatures of our God and King,\nLift up your voice and with us sing,\nAlleluia! "
          "Alleluia!\nThou burning sun with golden beam,\nThou silver moon with softer gleam!",
          "Thou rushing wind that art so strong,\nYe clouds that sail in heaven along,\nO praise "
          "him! Alleluia!\nThou rising morn, in praise rejoice,\nYe lights of evening, find a "
          "voice!"},
         "O praise him! O praise him!\nAlleluia! Alleluia! Alleluia!"},
        {"Fairest Lord Jesus",
         "Munster Gesangbuch (1677); tr. Joseph A. Seiss (1873)",
         "St. Elizabeth (Crusader's Hymn)",
         "D",
         "praise,beauty,devotion",
         {"Fairest Lord Jesus,\nRuler of all nature,\nO thou of God and man the Son,\nThee will I "
          "cherish,\nThee will I honour,\nThou, my soul's glory, joy and crown.",
          "Fair are the meadows,\nFairer still the woodlands,\nRobed in the blooming garb of "
          "spring:\nJesus is fairer,\nJesus is purer,\nWho makes the woeful heart to sing."},
         {}},
        {"O Worship the King",
         "Robert Grant (1833)",
         "Hanover",
         "G",
         "praise,creation,majesty",
         {"O worship the King, all glorious above,\nO gratefully sing his power and his "
          "love;\nOur shield and defender, the Ancient of Days,\nPavilioned in splendour, and "
          "girded with praise.",
          "O tell of his might, O sing of his grace,\nWhose robe is the light, whose canopy "
          "space;\nHis chariots of wrath the deep thunderclouds form,\nAnd dark is his path on "
          "the wings of the storm."},
         {}},
        {"Love Divine, All Loves Excelling",
         "Charles Wesley (1747)",
         "Blaenwern",
         "G",
         "love,holiness,wedding",
         {"Love divine, all loves excelling,\nJoy of heaven, to earth come down,\nFix in us thy "
          "humble dwelling,\nAll thy faithful mercies crown.\nJesus, thou art all "
          "compassion,\nPure, "
          "unbounded love thou art;\nVisit us with thy salvation,\nEnter every trembling heart.",
          "Finish then thy new creation;\nPure and spotless let us be;\nLet us see thy great "
          "salvation\nPerfectly restored in thee;\nChanged from glory into glory,\nTill in heaven "
          "we take our place,\nTill we cast our crowns before thee,\nLost in wonder, love, and "
          "praise."},
         {}},
        {"Guide Me, O Thou Great Jehovah",
         "William Williams (1745); tr. Peter Williams (1771)",
         "Cwm Rhondda",
         "Ab",
         "guidance,pilgrimage,trust",
         {"Guide me, O thou great Jehovah,\nPilgrim through this barren land;\nI am weak, but thou "
          "art mighty;\nHold me with thy powerful hand.\nBread of heaven, bread of heaven,\nFeed "
          "me "
          "till I want no more.",
          "Open now the crystal fountain,\nWhence the healing stream doth flow;\nLet the fire and "
          "cloudy pillar\nLead me all my journey through.\nStrong deliverer, strong "
          "deliverer,\nBe thou still my strength and shield."},
         {}},
        {"Silent Night",
         "Joseph Mohr (1818); tr. John F. Young (1859)",
         "Stille Nacht",
         "Bb",
         "christmas,nativity,carol",
         {"Silent night, holy night,\nAll is calm, all is bright\nRound yon virgin mother and "
          "child.\nHoly infant so tender and mild,\nSleep in heavenly peace,\nSleep in heavenly "
          "peace.",
          "Silent night, holy night,\nShepherds quake at the sight;\nGlories stream from heaven "
          "afar,\nHeavenly hosts sing Alleluia!\nChrist the Saviour is born!\nChrist the Saviour "
          "is born!",
          "Silent night, holy night,\nSon of God, love's pure light;\nRadiant beams from thy holy "
          "face\nWith the dawn of redeeming grace,\nJesus, Lord, at thy birth,\nJesus, Lord, at "
          "thy birth."},
         {}},
        {"Joy to the World",
         "Isaac Watts (1719)",
         "Antioch",
         "D",
         "christmas,joy,carol",
         {"Joy to the world! the Lord is come;\nLet earth receive her King;\nLet every heart "
          "prepare him room,\nAnd heaven and nature sing.",
          "Joy to the earth! the Saviour reigns;\nLet men their songs employ;\nWhile fields and "
          "floods, rocks, hills and plains\nRepeat the sounding joy.",
          "He rules the world with truth and grace,\nAnd makes the nations prove\nThe glories of "
          "his righteousness,\nAnd wonders of his love."},
         {}},
        {"Christ the Lord Is Risen Today",
         "Charles Wesley (1739)",
         "Easter Hymn",
         "C",
         "easter,resurrection,praise",
         {"Christ the Lord is risen today, Alleluia!\nSons of men and angels say: Alleluia!\nRaise "
          "your joys and triumphs high, Alleluia!\nSing, ye heavens, and earth, reply: Alleluia!",
          "Love's redeeming work is done, Alleluia!\nFought the fight, the battle won, "
          "Alleluia!\nDeath in vain forbids him rise, Alleluia!\nChrist has opened paradise, "
          "Alleluia!"},
         {}},
        {"Nearer, My God, to Thee",
         "Sarah Flower Adams (1841)",
         "Bethany",
         "G",
         "devotion,comfort,funeral",
         {"Nearer, my God, to thee,\nNearer to thee!\nE'en though it be a cross\nThat raiseth "
          "me,\nStill all my song shall be,\nNearer, my God, to thee,\nNearer, my God, to "
          "thee,\nNearer to thee!",
          "Though like the wanderer,\nThe sun gone down,\nDarkness be over me,\nMy rest a "
          "stone,\nYet in my dreams I'd be\nNearer, my God, to thee,\nNearer, my God, to "
          "thee,\nNearer to thee!"},
         {}},
        {"Praise God, from Whom All Blessings Flow (Doxology)",
         "Thomas Ken (1674)",
         "Old Hundredth",
         "G",
         "praise,doxology,offering",
         {"Praise God, from whom all blessings flow;\nPraise him, all creatures here "
          "below;\nPraise him above, ye heavenly host;\nPraise Father, Son, and Holy Ghost."},
         {}},
    };
}
