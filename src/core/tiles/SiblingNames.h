#pragma once

#include "BarItem.h"

#include <vector>

namespace ravlin {

// Items that would read alike (most often two items of one application, each named by
// the application) get names of their own: each the first of its own accessibility
// title, its description and its window title that none of the others shares, else
// the shared name with a number. Items named apart already keep their names.
void nameSiblingsApart(std::vector<BarItem>& items);

} // namespace ravlin
