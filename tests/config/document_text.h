#pragma once

#include "config/configuration.h"

#include <gtest/gtest.h>

#include <string>

inline void Parse(Configuration& configuration, const std::string& text) {
    ASSERT_EQ(configuration.document.Parse(text.c_str()), tinyxml2::XML_SUCCESS);
}

/// The document on one line, as the library prints it in compact form.
inline std::string CompactText(const Configuration& configuration) {
    tinyxml2::XMLPrinter printer(nullptr, true);
    configuration.document.Print(&printer);
    return printer.CStr();
}

constexpr char declaration[] = "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>";
/// The default document in memory, on one line.
const std::string defaultText = std::string(declaration) + "<Config/>";
/// The default document as a save writes it.
const std::string defaultFile = std::string(declaration) + "\r\n<Config/>\r\n";
