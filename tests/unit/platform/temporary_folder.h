// A folder of a test's own, in which it works, and which is its home and holds its XDG folders. Everything
// is as before afterwards.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <string>

namespace velm {

class TemporaryFolder {
  public:
    TemporaryFolder() : before_(std::filesystem::current_path()) {
        std::string name = (std::filesystem::temp_directory_path() / "velm-test-XXXXXX").string();
        path_ = mkdtemp(name.data());
        std::filesystem::current_path(path_);
        Set("HOME", path_);
        Set("XDG_DATA_HOME", path_ + "/data");
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::filesystem::current_path(before_);
        std::filesystem::remove_all(path_);
        for (const auto& [name, value] : environment_) {
            if (value) {
                setenv(name.c_str(), value->c_str(), 1);
            } else {
                unsetenv(name.c_str());
            }
        }
    }

    // The native path, without a slash at its end.
    const std::string& Path() const { return path_; }

    void Set(const std::string& name, const std::string& value) {
        const char* old = std::getenv(name.c_str());
        environment_.emplace(name, old == nullptr ? std::nullopt : std::optional<std::string>(old));
        setenv(name.c_str(), value.c_str(), 1);
    }

    // Names are relative to the folder. Folders on the way are made.
    void Write(const std::string& name, const std::string& bytes) const {
        const std::filesystem::path file = std::filesystem::path(path_) / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << bytes;
    }
    std::string Read(const std::string& name) const {
        std::ifstream file(std::filesystem::path(path_) / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    bool Has(const std::string& name) const {
        return std::filesystem::symlink_status(std::filesystem::path(path_) / name).type() !=
               std::filesystem::file_type::not_found;
    }
    void Link(const std::string& target, const std::string& name) const {
        std::filesystem::create_symlink(target, std::filesystem::path(path_) / name);
    }

  private:
    std::filesystem::path before_;
    std::string path_;
    std::map<std::string, std::optional<std::string>> environment_;
};

}  // namespace velm
