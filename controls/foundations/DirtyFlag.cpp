#include "foundations/DirtyFlag.h"

#include "foundations/Platform.h"

namespace SaveCycle {
qint32 CleanControl(const DirtyFlag& flag, const QString& strPrompt,
                    const std::function<void()>& save, qint32 intButtons) {
    return CleanControl(flag.IsSet(), strPrompt, save, intButtons);
}

qint32 CleanControl(bool blnDirty, const QString& strPrompt, const std::function<void()>& save,
                    qint32 intButtons) {
    if (!blnDirty)
        return 0;
    const qint32 answer =
        Platform::Current().MsgBox(strPrompt, intButtons, QStringLiteral("Save Changes?"));
    if (answer != vbNo)
        save();
    return answer;
}
} // namespace SaveCycle
