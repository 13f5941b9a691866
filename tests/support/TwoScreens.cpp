#include "TwoScreens.h"

#include <QFile>

namespace TwoScreens {

void SelectPlatform(const QTemporaryDir& dir) {
    if (!dir.isValid())
        qFatal("no temporary folder for the screen file");
    const QString file = dir.filePath(QStringLiteral("screens.json"));
    QFile json(file);
    if (!json.open(QIODevice::WriteOnly))
        qFatal("cannot write the screen file");
    json.write(R"({"screens":[)"
               R"({"name":"A","x":0,"y":0,"width":1024,"height":768,"logicalDpi":96,"dpr":1},)"
               R"({"name":"B","x":1024,"y":0,"width":1920,"height":1080,"logicalDpi":96,"dpr":1})"
               R"(]})");
    json.close();
    qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + file).toLocal8Bit());
}

} // namespace TwoScreens
