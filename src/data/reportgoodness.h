#pragma once

#include <string>
#include <string_view>

/// How the figures of goodness are printed, and their lines in the analysis report.

/// A p-value in percent as a list shows it: two decimals at most, never 100; ">99.9999" above that, and "<1"
/// below 1 percent. `fine`: the form of small samples, whose p-values reach further down: "<.1" below 0.1.
void appendpercent(std::string& text, double percent, bool fine);

/// " (pve%<10!)" for a p-value below 10 percent, " (OK)" for any other. `urgent`: "!!" behind it.
void appendtenpercentmark(std::string& text, std::string_view label, double percent, bool urgent);

/// Grade of an Anderson-Darling p-value in percent: Bad below 1, Very Poor below 5, Poor below 10, Acceptable
/// below 50, Good below 80, Very Good.
void appendadgrade(std::string& text, double percent);

/// Grade of the confidence, in percent, that two sets differ: Possible from 80, Probable from 90, Strong from
/// 95; nothing below.
void appenddifferencegrade(std::string& text, double confidence);

/// " pFF-Difference [%] = 3.2 (Strong)", or "No LR Test Results" where the test gave no value. percent in.
void appenddifference(std::string& text, double pFF);

/// A measure of the regression line means nothing beside a line that was fitted by likelihood: false for one.
bool byregression(int k);

/// True when the run compares two sets by their likelihood: exactly two sets, both
/// shown, and contours asked for.
bool twosetsasked();

/// Critical r^2 of set k with its mark, as the last cell of the line of the correlation.
void reportcorrelationtest(int k);

/// The lines of pve and of the Anderson-Darling test.
void reportgoodness(int k);
