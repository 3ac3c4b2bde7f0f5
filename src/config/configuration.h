#pragma once

#include <tinyxml2.h>

#include <cstdint>
#include <string>

/// The settings: one XML file, read and changed through paths of element names such as
/// "Config.EnableLog".
///
/// Made on a caller's stack for one load, a few questions or changes and a save. It belongs to one
/// thread and takes no lock; two of them over one file know nothing of each other, and the last
/// save wins. It reports by results alone: it writes no log line and shows no message.
///
/// A path is the root element's name and then a child's name for each level, joined by ".". Names
/// are compared byte by byte; of several children with one name the first counts, and a later one
/// is never tried. Attributes, comments and elements that nobody asks for survive a load and a
/// save.
///
/// Text is bytes: nothing is transcoded, whatever encoding the file declares. Wide values are
/// narrowed by the caller. Entities are resolved on reading and written back on saving.
class Configuration {
  public:
    Configuration() = default;
    Configuration(const Configuration&) = delete;
    Configuration& operator=(const Configuration&) = delete;
    /// Never saves: a change not yet saved is lost.
    virtual ~Configuration() = default;

    /// Reads the file. One that is missing, empty, malformed or can't be opened is replaced by the
    /// default document, and nothing of it is kept.
    ///
    /// True when the file was read (`fileName` is then the path) or when the default document was
    /// written (`fileName` stays empty). False when it couldn't be written: the document in memory
    /// is the default one, to be asked and changed like any other. Comes before everything else;
    /// what a load before it left is gone, also `modified`.
    bool Load(std::wstring path);

    /// Writes the document. True: the file was opened; `modified` and `fileName` stay as they were.
    /// False: it couldn't be opened; `modified` is cleared and `fileName` is the path.
    bool Save(const std::wstring& path);

    /// `Save(fileName)` when something was changed. The result is dropped.
    void SaveIfModified();

    /// Null when there is none. The element belongs to the document: the pointer is good until the
    /// element is removed or moved, or the next `Load`.
    tinyxml2::XMLElement* Find(const std::string& path);

    /// As `Find`, but makes what is missing, each as the last child of its parent. Null only when
    /// the document has a root of another name; nothing is made then.
    tinyxml2::XMLElement* FindOrCreate(const std::string& path);

    /// The element's place among its parent's element children, from 0; -1 when there is none.
    std::int32_t IndexOf(const std::string& path);

    /// The element's text: the value of its first child node, if that is text. An element that is
    /// there without text gives the empty string; the default is for a missing one.
    std::string GetString(const std::string& path, std::string defaultValue);

    /// The decimal number at the start of the element's text; the default when there is none.
    int GetInt(const std::string& path, int defaultValue);

    /// Makes the element where it is missing and sets its text. A value that it has already is no
    /// change. Does nothing under a root of another name. `value` is not null.
    void SetString(const std::string& path, const char* value);

    /// As `SetString`, with the number in decimal digits.
    void SetInt(const std::string& path, int value);

    /// Deletes the element with all that it holds. Does nothing when there is none.
    void Remove(const std::string& path);

    /// Moves the element, made if missing, among its parent's element children, by way of a copy:
    /// pointers to it are no good afterwards.
    ///
    /// `index` 0 is the place in front of everything, comments and text too. Any other means behind
    /// the entry `index` - 1 of the list as it stood with the element still in it; so A moved to 2
    /// in A B C D gives B A C D, and an element moved to its own place plus one is lost. An index
    /// above the number of entries ends the process through the runtime's invalid-parameter
    /// handling, after the element was deleted. The path must begin with the root's name.
    void MoveTo(const std::string& path, std::uint32_t index);

    std::wstring fileName;  ///< see `Load` and `Save`; empty at the start
    bool modified = false;  ///< something was made, changed, removed or moved
    tinyxml2::XMLDocument document{true, tinyxml2::PRESERVE_WHITESPACE};
};
