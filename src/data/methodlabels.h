#pragma once

#include <string>
#include <string_view>

/// The one list of families, methods and plotting positions by their printed names and codes.

std::string_view familyname(int family);     ///< "Weibull", "LogNormal", "Normal", "Gumbel"
void appendfamily(std::string& text);        ///< the session's family as printed: "BLogNormal", "Gumbel-"
void appendmethod(std::string& text);        ///< "rr", "rrs", "mle", "mmleN-1", "RBAmd", …
void appendstatus(std::string& text, int k); ///< status word of set k: "rr/insp1", "mle/t0~r/tP%=50"; a line
                                             ///< with a bias correction has its name: "RBAmd/t0~m"
void appendletter(std::string& text, int k); ///< one-letter label of set k: "A", "E", "WB + 2 F", "B", "G+"
void appendinput(std::string& text, int inputType); ///< "Standard Point-By-Point", "Inspect (insp1)", …
std::string_view rankcode(int rankMethod);          ///< "br", "mr", "hr", "nr", "kr", "rr"
std::string_view rankname(int rankMethod); ///< "Binomial", "Mean", "Hazen", "Blom", "Kaplan-Meier", "Benard"
