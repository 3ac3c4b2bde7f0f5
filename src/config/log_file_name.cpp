#include "config/log_file_name.h"

std::string LogFileBase(const std::string& directory, const std::string& name,
                        const std::string& severity) {
    return directory + "/" + name + "." + severity;
}
