#pragma once

#include <string>

/// The results of the last cycle as one JSON object, the contract for scripts: fields are added, never
/// changed. Sets hold everything from the title to the points in order of value.
void writeresults(std::string& json);
