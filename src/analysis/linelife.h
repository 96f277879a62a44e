#pragma once

#include "plot/transforms.h"

/// What a fitted line tells of items in use. Times in the unit of the data, from the start of life; t0 is the
/// threshold of the line. Every routine answers not a number where the question has no answer: a time below
/// 0, a probability outside (0, 1), a line that is none.

/// Further time by which a share p of the items that have lived up to `age` has failed: t with
/// R(age + t) = (1 - p) R(age). Nelson, Applied Life Data Analysis (1982), ch. 1.
double liferemaining(const FamilyLine& line, double t0, double age, double p);

/// Mean time between failures of an item that is renewed at each failure, and as planned at age T:
/// the integral of R from 0 to T over F(T). Values below 0 of a family that has them count as 0.
/// Barlow and Proschan, Mathematical Theory of Reliability (1965), ch. 3, eq. 2.7.
double renewedmtbf(const FamilyLine& line, double t0, double T);

/// Chance that the largest of n values of the line lies at or above x, 1 - F(x)^n, and that the smallest lies
/// at or below it, 1 - (1 - F(x))^n. David and Nagaraja, Order Statistics (2003), ch. 2.
double largestbeyond(const FamilyLine& line, double t0, double x, double n);
double smallestbeyond(const FamilyLine& line, double t0, double x, double n);
