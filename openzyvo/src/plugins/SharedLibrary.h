#pragma once

#include <filesystem>
#include <string>

namespace oz::plugins {

// A shared library opened with all its symbols resolved at once and kept to
// itself (RTLD_NOW | RTLD_LOCAL), closed when the object goes.
class SharedLibrary {
public:
    SharedLibrary() = default;
    ~SharedLibrary();
    SharedLibrary(SharedLibrary&& other) noexcept;
    SharedLibrary& operator=(SharedLibrary&& other) noexcept;
    SharedLibrary(const SharedLibrary&) = delete;
    SharedLibrary& operator=(const SharedLibrary&) = delete;

    // An empty library and the loader's reason when the file cannot be opened.
    static SharedLibrary open(const std::filesystem::path& path, std::string& error);

    bool isOpen() const { return m_handle != nullptr; }
    const std::filesystem::path& path() const { return m_path; }
    // The address of an exported symbol, or null.
    void* symbol(const char* name) const;
    // Whether `address` (of a function, say) lies in this library.
    bool contains(const void* address) const;

    // Leaves the library mapped for the rest of the process: code of it may
    // still be referred to (a node type that could not be removed).
    void keepMapped();

private:
    void* m_handle = nullptr;
    std::filesystem::path m_path;
};

} // namespace oz::plugins
