#include "FakeOffice.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>

namespace {
QString Script(FakeOffice::Behaviour behaviour) {
    const QString start = QStringLiteral("#!/bin/sh\n"
                                         "PATH=/usr/bin:/bin\n"
                                         "here=$(dirname \"$0\")\n"
                                         "line=\"\"; for a in \"$@\"; do line=\"$line$a\t\"; done\n"
                                         "printf '%s\\n' \"$line\" >> \"$here/runs.log\"\n");
    switch (behaviour) {
    case FakeOffice::Converts:
        return start + QStringLiteral("while [ $# -gt 0 ]; do\n"
                                      "  case \"$1\" in\n"
                                      "    --convert-to) fmt=\"$2\"; shift ;;\n"
                                      "    --outdir) out=\"$2\"; shift ;;\n"
                                      "    -*) ;;\n"
                                      "    *) src=\"$1\" ;;\n"
                                      "  esac\n"
                                      "  shift\n"
                                      "done\n"
                                      "name=$(basename \"$src\"); name=\"${name%.*}\"\n"
                                      "cp \"$here/output\" \"$out/$name.${fmt%%:*}\"\n");
    case FakeOffice::ConvertsNothing:
        return start + QStringLiteral("echo 'Error: source file could not be loaded'\n");
    case FakeOffice::Hangs:
        // LibreOffice's starter runs the office as a child: so does the fake.
        return start + QStringLiteral("sleep 60 &\necho $! > \"$here/hanging.pid\"\nwait\n");
    case FakeOffice::Without:
        break;
    }
    return QString();
}
} // namespace

FakeOffice::FakeOffice(Behaviour behaviour, const QByteArray& output) : m_oldPath(qgetenv("PATH")) {
    if (behaviour != Without) {
        const QString strScript = m_folder.filePath(QStringLiteral("soffice"));
        TestDocuments::Write(strScript, Script(behaviour).toUtf8());
        QFile::setPermissions(strScript, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        TestDocuments::Write(m_folder.filePath(QStringLiteral("output")), output);
    }
    qputenv("PATH", QFile::encodeName(m_folder.path()));
}

FakeOffice::~FakeOffice() {
    qputenv("PATH", m_oldPath);
}

int FakeOffice::Runs() const {
    QFile log(m_folder.filePath(QStringLiteral("runs.log")));
    if (!log.open(QIODevice::ReadOnly))
        return 0;
    return static_cast<int>(log.readAll().count('\n'));
}

QStringList FakeOffice::Arguments(int intRun) const {
    QFile log(m_folder.filePath(QStringLiteral("runs.log")));
    if (!log.open(QIODevice::ReadOnly))
        return {};
    const QList<QByteArray> lines = log.readAll().split('\n');
    if (intRun < 0 || intRun >= lines.size())
        return {};
    QStringList args = QString::fromUtf8(lines.at(intRun)).split(QLatin1Char('\t'));
    if (!args.isEmpty() && args.last().isEmpty())
        args.removeLast();
    return args;
}

QString FakeOffice::HangingPidFile() const {
    return m_folder.filePath(QStringLiteral("hanging.pid"));
}

bool FakeOffice::IsAlive(const QString& strPid) {
    QFile stat(QStringLiteral("/proc/%1/stat").arg(strPid));
    if (strPid.isEmpty() || !stat.open(QIODevice::ReadOnly))
        return false;
    // pid (name) state ...: the state follows the closing parenthesis.
    const QByteArray line = stat.readAll();
    const qsizetype close = line.lastIndexOf(')');
    return close >= 0 && close + 2 < line.size() && line.at(close + 2) != 'Z' &&
           line.at(close + 2) != 'X';
}

namespace TestDocuments {

bool Write(const QString& strPath, const QByteArray& bytes) {
    QFile file(strPath);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QString WriteIn(const QTemporaryDir& folder, const QString& strName, const QByteArray& bytes) {
    const QString strPath = folder.filePath(strName);
    QDir().mkpath(QFileInfo(strPath).absolutePath());
    return Write(strPath, bytes) ? strPath : QString();
}

QByteArray SlidesPdf(int intPages) {
    QByteArray bytes;
    {
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        writer.setPageSize(QPageSize(QSizeF(254, 190.5), QPageSize::Millimeter));
        writer.setResolution(96);
        QPainter painter(&writer);
        QFont font = painter.font();
        font.setPixelSize(60);
        painter.setFont(font);
        for (int page = 1; page <= intPages; ++page) {
            if (page > 1)
                writer.newPage();
            painter.drawText(QRect(0, 0, 900, 600), Qt::AlignCenter,
                             QStringLiteral("Slide %1").arg(page));
        }
    }
    return bytes;
}

QByteArray Rtf() {
    return QByteArrayLiteral("{\\rtf1\\ansi\\deff0 {\\fonttbl {\\f0 Arial;}}"
                             "{\\b Bold heading}\\par "
                             "Plain text with {\\i italic} words in Caf\\'e9 Z\\'fcrich.\\par}");
}

QByteArray FlatPresentation(int intSlides) {
    QByteArray pages;
    for (int i = 1; i <= intSlides; ++i)
        pages += QStringLiteral("<draw:page draw:name=\"page%1\" draw:master-page-name=\"Default\">"
                                "<draw:frame svg:x=\"2cm\" svg:y=\"2cm\" svg:width=\"20cm\" "
                                "svg:height=\"5cm\"><draw:text-box><text:p>Slide number %1"
                                "</text:p></draw:text-box></draw:frame></draw:page>")
                     .arg(i)
                     .toUtf8();
    return QByteArrayLiteral(
               "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
               "<office:document "
               "xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\" "
               "xmlns:draw=\"urn:oasis:names:tc:opendocument:xmlns:drawing:1.0\" "
               "xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\" "
               "xmlns:svg=\"urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0\" "
               "xmlns:presentation=\"urn:oasis:names:tc:opendocument:xmlns:presentation:1.0\" "
               "xmlns:style=\"urn:oasis:names:tc:opendocument:xmlns:style:1.0\" "
               "xmlns:fo=\"urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0\" "
               "office:version=\"1.3\" "
               "office:mimetype=\"application/vnd.oasis.opendocument.presentation\">"
               "<office:automatic-styles><style:page-layout style:name=\"PM1\">"
               "<style:page-layout-properties fo:page-width=\"28cm\" fo:page-height=\"21cm\"/>"
               "</style:page-layout></office:automatic-styles>"
               "<office:master-styles><style:master-page style:name=\"Default\" "
               "style:page-layout-name=\"PM1\"/></office:master-styles>"
               "<office:body><office:presentation>") +
           pages + QByteArrayLiteral("</office:presentation></office:body></office:document>\n");
}

} // namespace TestDocuments
