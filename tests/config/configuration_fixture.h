#pragma once

#include "config/configuration.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <string>

/// A store, and the path of a configuration file in a folder of its own; at first there is no file.
class ConfigurationTest : public testing::Test {
  protected:
    void WriteAndLoad(const std::string& bytes) {
        WriteFileBytes(m_path, bytes);
        ASSERT_TRUE(m_configuration.Load(m_path));
    }

    std::string FileBytes() const { return ReadFileBytes(m_path); }

    const TempFolder m_folder{L"KVT 配置 config"};
    const std::wstring m_path = m_folder / L"config.xml";
    Configuration m_configuration;
};
