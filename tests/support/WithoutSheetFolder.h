#pragma once

#include <QByteArray>
#include <QtGlobal>

// While it lives, printed sheets cannot be written: the folder of temporary files (TMPDIR)
// names a place under a file, which no one can create, not even the superuser. The data
// library then answers that printing is not possible (IsWordInstalled False).
class WithoutSheetFolder {
public:
    WithoutSheetFolder() : m_old(qgetenv("TMPDIR")), m_had(qEnvironmentVariableIsSet("TMPDIR")) {
        qputenv("TMPDIR", QByteArray("/dev/null/no-sheets"));
    }
    ~WithoutSheetFolder() {
        if (m_had)
            qputenv("TMPDIR", m_old);
        else
            qunsetenv("TMPDIR");
    }
    WithoutSheetFolder(const WithoutSheetFolder&) = delete;
    WithoutSheetFolder& operator=(const WithoutSheetFolder&) = delete;

private:
    QByteArray m_old;
    bool m_had;
};
