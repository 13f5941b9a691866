#include "FontWarmUp.h"

#ifdef CORVANTIS_HAVE_FONTCONFIG
#include <fontconfig/fontconfig.h>
#endif

FontWarmUp::FontWarmUp() {
#ifdef CORVANTIS_HAVE_FONTCONFIG
    // FcInit keeps the configuration it loads as the process's own; Qt's font database takes
    // it from there instead of loading it again.
    m_thread = std::thread([this] { m_result = FcInit() == FcTrue; });
#endif
}

bool FontWarmUp::Available() {
#ifdef CORVANTIS_HAVE_FONTCONFIG
    return true;
#else
    return false;
#endif
}

FontWarmUp::~FontWarmUp() {
    Wait();
}

void FontWarmUp::Wait() {
    if (!m_thread.joinable())
        return;
    m_thread.join();
    m_loaded = m_result;
}
