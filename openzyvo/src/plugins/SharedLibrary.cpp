#include "plugins/SharedLibrary.h"

#include <dlfcn.h>
#include <link.h>
#include <utility>

namespace oz::plugins {

SharedLibrary::~SharedLibrary() {
    if (m_handle)
        dlclose(m_handle);
}

SharedLibrary::SharedLibrary(SharedLibrary&& other) noexcept
    : m_handle(std::exchange(other.m_handle, nullptr))
    , m_path(std::move(other.m_path)) {}

SharedLibrary& SharedLibrary::operator=(SharedLibrary&& other) noexcept {
    if (this != &other) {
        if (m_handle)
            dlclose(m_handle);
        m_handle = std::exchange(other.m_handle, nullptr);
        m_path = std::move(other.m_path);
    }
    return *this;
}

SharedLibrary SharedLibrary::open(const std::filesystem::path& path, std::string& error) {
    SharedLibrary library;
    dlerror();
    library.m_handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library.m_handle) {
        const char* reason = dlerror();
        error = reason ? reason : "the library could not be opened";
        return library;
    }
    library.m_path = path;
    return library;
}

void* SharedLibrary::symbol(const char* name) const {
    return m_handle ? dlsym(m_handle, name) : nullptr;
}

bool SharedLibrary::contains(const void* address) const {
    if (!m_handle || !address)
        return false;
    link_map* own = nullptr;
    link_map* found = nullptr;
    Dl_info info;
    return dlinfo(m_handle, RTLD_DI_LINKMAP, &own) == 0 &&
           dladdr1(address, &info, reinterpret_cast<void**>(&found), RTLD_DL_LINKMAP) != 0 && found == own;
}

void SharedLibrary::keepMapped() {
    m_handle = nullptr;
}

} // namespace oz::plugins
