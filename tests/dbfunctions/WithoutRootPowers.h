#pragma once

#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstring>

// While it lives, the calling thread works without the powers that let the superuser read and
// write any file (CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH), so that file permissions hold for it
// as they hold for a volunteer's account. For an ordinary user it changes nothing.
class WithoutRootPowers {
public:
    WithoutRootPowers() {
        if (syscall(SYS_capget, &m_header, m_saved) != 0)
            return;
        __user_cap_data_struct reduced[2];
        std::memcpy(reduced, m_saved, sizeof reduced);
        reduced[0].effective &= ~((1u << CAP_DAC_OVERRIDE) | (1u << CAP_DAC_READ_SEARCH));
        m_active = syscall(SYS_capset, &m_header, reduced) == 0;
    }
    ~WithoutRootPowers() {
        if (m_active)
            syscall(SYS_capset, &m_header, m_saved);
    }
    WithoutRootPowers(const WithoutRootPowers&) = delete;
    WithoutRootPowers& operator=(const WithoutRootPowers&) = delete;

private:
    __user_cap_header_struct m_header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct m_saved[2]{};
    bool m_active = false;
};
