#pragma once

#include "workbench/mel/ScriptHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

/// A host beside a folder of its own with scene files.
class SceneFolder : public testing::Test, protected ScriptHost {
protected:
    SceneFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "scenesXXXXXX").string();
        m_folder = mkdtemp(name.data());
    }
    ~SceneFolder() override { std::filesystem::remove_all(m_folder); }

    std::string path(const std::string& name) const { return (m_folder / name).string(); }
    /// Writes a scene with these statements; gives its path.
    std::string write(const std::string& name, const std::string& statements) const
    {
        std::filesystem::create_directories(std::filesystem::path(path(name)).parent_path());
        std::ofstream(path(name)) << "//Maya ASCII 2019 scene\n" << statements;
        return path(name);
    }
    std::string content(const std::string& name) const
    {
        std::ostringstream text;
        text << std::ifstream(path(name)).rdbuf();
        return text.str();
    }
    /// `file` with these flags and the path of a scene of the folder.
    bool file(const std::string& flags, const std::string& name)
    {
        return run("file " + flags + " \"" + path(name) + "\"");
    }
    void saveAs(const std::string& name)
    {
        ASSERT_TRUE(file("-rename", name));
        ASSERT_TRUE(run("file -save -type \"mayaAscii\"")) << errors.back();
    }

private:
    std::filesystem::path m_folder;
};
