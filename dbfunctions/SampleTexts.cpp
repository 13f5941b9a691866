#include "SampleContent.h"

// Prayers, readings and other texts of the sample database. The readings are from the World
// English Bible, which is in the public domain; the prayers are traditional texts.

namespace {
const QString kWeb = QStringLiteral("World English Bible (public domain)");
const QString kTraditional = QStringLiteral("Traditional text, public domain");
} // namespace

QList<SampleContent::TextItem> SampleContent::TextItems() {
    return {
        {1, "The Lord@@s Prayer", "Matthew 6:9-13 (traditional form)",
         "Our Father, who art in heaven,\nhallowed be thy name;\nthy kingdom come;\nthy will be "
         "done,\non earth as it is in heaven.\nGive us this day our daily bread.\nAnd forgive us "
         "our trespasses,\nas we forgive those who trespass against us.\nAnd lead us not into "
         "temptation;\nbut deliver us from evil.\nFor thine is the kingdom,\nthe power, and the "
         "glory,\nfor ever and ever.\nAmen.",
         "prayer,lord's prayer", kTraditional},
        {1, "Prayer of St Francis", "Anonymous (1912), attributed to Francis of Assisi",
         "Lord, make me an instrument of your peace:\nwhere there is hatred, let me sow "
         "love;\nwhere there is injury, pardon;\nwhere there is doubt, faith;\nwhere there is "
         "despair, hope;\nwhere there is darkness, light;\nwhere there is sadness, joy.\nO divine "
         "Master, grant that I may not so much seek\nto be consoled as to console,\nto be "
         "understood as to understand,\nto be loved as to love.\nFor it is in giving that we "
         "receive,\nit is in pardoning that we are pardoned,\nand it is in dying that we are born "
         "to eternal life.\nAmen.",
         "prayer,peace", kTraditional},
        {1, "Collect for Purity", "Book of Common Prayer (1662)",
         "Almighty God, unto whom all hearts be open, all desires known, and from whom no secrets "
         "are hid: cleanse the thoughts of our hearts by the inspiration of thy Holy Spirit, that "
         "we may perfectly love thee, and worthily magnify thy holy Name; through Christ our Lord. "
         "Amen.",
         "prayer,confession,morning", kTraditional},
        {1, "Prayer of Confession", "Book of Common Prayer (1662), General Confession",
         "Almighty and most merciful Father, we have erred, and strayed from thy ways like lost "
         "sheep. We have followed too much the devices and desires of our own hearts. We have "
         "offended against thy holy laws. We have left undone those things which we ought to have "
         "done; and we have done those things which we ought not to have done. But thou, O Lord, "
         "have mercy upon us. Spare thou them, O God, which confess their faults. Restore thou "
         "them that are penitent; according to thy promises declared unto mankind in Christ Jesu "
         "our Lord. Amen.",
         "prayer,confession", kTraditional},
        {2, "The Lord Is My Shepherd", "Psalm 23",
         "Yahweh is my shepherd:\nI shall lack nothing.\nHe makes me lie down in green "
         "pastures.\nHe leads me beside still waters.\nHe restores my soul.\nHe guides me in the "
         "paths of righteousness for his name's sake.\nEven though I walk through the valley of "
         "the shadow of death,\nI will fear no evil, for you are with me.\nYour rod and your "
         "staff,\nthey comfort me.\nYou prepare a table before me\nin the presence of my "
         "enemies.\nYou anoint my head with oil.\nMy cup runs over.\nSurely goodness and loving "
         "kindness shall follow me all the days of my life,\nand I will dwell in Yahweh's house "
         "forever.",
         "psalm,shepherd,comfort,funeral", kWeb},
        {2, "God So Loved the World", "John 3:16-17",
         "For God so loved the world, that he gave his one and only Son, that whoever believes in "
         "him should not perish, but have eternal life. For God didn't send his Son into the world "
         "to judge the world, but that the world should be saved through him.",
         "gospel,love,salvation", kWeb},
        {2, "Love Is Patient", "1 Corinthians 13:4-8",
         "Love is patient and is kind. Love doesn't envy. Love doesn't brag, is not proud, doesn't "
         "behave itself inappropriately, doesn't seek its own way, is not provoked, takes no "
         "account of evil; doesn't rejoice in unrighteousness, but rejoices with the truth; bears "
         "all things, believes all things, hopes all things, and endures all things. Love never "
         "fails.",
         "love,wedding,epistle", kWeb},
        {2, "The Beatitudes", "Matthew 5:3-10",
         "Blessed are the poor in spirit,\nfor theirs is the Kingdom of Heaven.\nBlessed are those "
         "who mourn,\nfor they shall be comforted.\nBlessed are the gentle,\nfor they shall "
         "inherit the earth.\nBlessed are those who hunger and thirst after righteousness,\nfor "
         "they shall be filled.\nBlessed are the merciful,\nfor they shall obtain mercy.\nBlessed "
         "are the pure in heart,\nfor they shall see God.\nBlessed are the peacemakers,\nfor they "
         "shall be called children of God.\nBlessed are those who have been persecuted for "
         "righteousness' sake,\nfor theirs is the Kingdom of Heaven.",
         "gospel,beatitudes,sermon on the mount", kWeb},
        {2, "The Birth of Jesus", "Luke 2:8-14",
         "There were shepherds in the same country staying in the field, and keeping watch by "
         "night over their flock. Behold, an angel of the Lord stood by them, and the glory of the "
         "Lord shone around them, and they were terrified. The angel said to them, \"Don't be "
         "afraid, for behold, I bring you good news of great joy which will be to all the people. "
         "For there is born to you today, in David's city, a Savior, who is Christ the Lord.\" "
         "Suddenly, there was with the angel a multitude of the heavenly army praising God, and "
         "saying, \"Glory to God in the highest, on earth peace, good will toward men.\"",
         "christmas,nativity,gospel", kWeb},
        {2, "He Is Risen", "Matthew 28:5-7",
         "The angel answered the women, \"Don't be afraid, for I know that you seek Jesus, who has "
         "been crucified. He is not here, for he has risen, just like he said. Come, see the place "
         "where the Lord was lying. Go quickly and tell his disciples, 'He has risen from the "
         "dead, and behold, he goes before you into Galilee; there you will see him.'\"",
         "easter,resurrection,gospel", kWeb},
        {8, "Psalm 100 (responsive)", "Psalm 100",
         "Leader: Shout for joy to Yahweh, all you lands!\nPeople: Serve Yahweh with "
         "gladness.\nLeader: Come before his presence with singing.\nPeople: Know that Yahweh, he "
         "is God.\nLeader: It is he who has made us, and we are his.\nPeople: We are his people, "
         "and the sheep of his pasture.\nLeader: Enter into his gates with thanksgiving,\nPeople: "
         "into his courts with praise.\nAll: For Yahweh is good. His loving kindness endures "
         "forever, his faithfulness to all generations.",
         "psalm,praise,thanksgiving,harvest", kWeb},
        {13, "The Apostles@@ Creed", "Traditional",
         "I believe in God, the Father almighty,\ncreator of heaven and earth.\nI believe in Jesus "
         "Christ, his only Son, our Lord,\nwho was conceived by the Holy Spirit,\nborn of the "
         "Virgin Mary,\nsuffered under Pontius Pilate,\nwas crucified, died, and was "
         "buried;\nhe descended to the dead.\nOn the third day he rose again;\nhe ascended into "
         "heaven,\nhe is seated at the right hand of the Father,\nand he will come to judge the "
         "living and the dead.\nI believe in the Holy Spirit,\nthe holy catholic Church,\nthe "
         "communion of saints,\nthe forgiveness of sins,\nthe resurrection of the body,\nand the "
         "life everlasting. Amen.",
         "creed,faith", kTraditional},
        {6, "The Blessing", "Numbers 6:24-26",
         "Yahweh bless you, and keep you.\nYahweh make his face to shine on you,\nand be gracious "
         "to you.\nYahweh lift up his face toward you,\nand give you peace.",
         "blessing,benediction", kWeb},
        {14, "Welcome and Notices", "Church office",
         "Welcome to our service this morning. Tea and coffee are served in the hall after the "
         "service. The church choir meets on Thursday at half past seven. The food bank collection "
         "box is at the back of the church.",
         "notices,welcome", QString()},
        {7, "The Lost Sheep (children)", "Retold from Luke 15:3-7",
         "Once there was a shepherd who had a hundred sheep. One evening he counted them: "
         "ninety-eight, ninety-nine... one was missing! He left the ninety-nine safe in the fold "
         "and went out into the dark hills, calling and searching, until he found the little lost "
         "sheep. He carried it home on his shoulders, and he was so happy that he called his "
         "friends to celebrate. Jesus said that God is like that shepherd: he looks for every one "
         "of us.",
         "children,story,parable", QString()},
        {3, "A Quiet Moment", "Psalm 46:10",
         "Be still, and know that I am God.\nBe still, and know.\nBe still.\nBe.",
         "meditation,"
         "stillness",
         kWeb},
        {9, "The Good Samaritan", "Retold from Luke 10:30-37",
         "A man was travelling from Jerusalem to Jericho when robbers attacked him, took his "
         "clothes and left him half dead by the road. A priest came by and passed on the other "
         "side; so did a Levite. But a Samaritan, a stranger, saw him and had compassion. He "
         "bandaged his wounds, set him on his own animal, brought him to an inn and paid for his "
         "care. \"Which of these three was a neighbour?\" Jesus asked. \"The one who showed "
         "mercy.\" \"Go and do likewise.\"",
         "story,parable,neighbour", QString()},
        {15, "Offering", "Church office",
         "We now bring our gifts and offerings to God, with thanks for all that we have received.",
         "offering", QString()},
    };
}
