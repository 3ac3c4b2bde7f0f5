#pragma once

#include "host/data_manager.h"

/// What the module keeps of a document: nothing yet.
class CDocData {};

/// The module's data by document. Nobody puts any in; the object is there for its place among the
/// host's reactors.
extern AcApDataManager<CDocData> DocumentData;
