#pragma once
// The statistics routines shared by every analysis page.

#include "stats/AnalysisState.h"

#include <string>
#include <vector>

namespace Maths {

// The one rounding routine: x x 10^d formatted with "0" (halves away from zero on its
// 15-digit decimal text), read back and divided by 10^d. A single-digit product returns x as it is.
double RoundToPlaces(double x, short d);

// Rounds to f significant figures. Changes x in place when x is 1 or more (as callers expect).
// x = 0 has no leading figure: that is a run-time failure rather than an endless search.
double RoundToFigures(double &x, short &f);

// Sorts ascending in place (any correct sort of integers gives the same array).
void BubbleSort(std::vector<int> &a);
double MedianOf(const std::vector<int> &a);
double LowerQuartileOf(const std::vector<int> &a);
double UpperQuartileOf(const std::vector<int> &a);
std::string ModeOf(const std::vector<int> &a);
double VarianceOf(const std::vector<int> &a, const zrt::AnalysisResults &r);
double StandardDeviationOf(const zrt::AnalysisResults &r);
double LowerOutlierOf(const zrt::AnalysisResults &r);
double UpperOutlierOf(const zrt::AnalysisResults &r);

// Bounds-checked element read: a bad index is a subscript failure (run-time error 9).
int At(const std::vector<int> &a, long long index);

} // namespace Maths
