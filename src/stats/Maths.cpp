#include "stats/Maths.h"

#include "common/NumberText.h"
#include "common/RunTimeError.h"

#include <algorithm>
#include <cmath>
#include <utility>

using namespace zrt;

namespace Maths {

int At(const std::vector<int> &a, long long index)
{
    if (index < 0 || index >= static_cast<long long>(a.size()))
        raise(ErrSubscript);
    return a[static_cast<size_t>(index)];
}

double RoundToPlaces(double x, short d)
{
    const double scale = std::pow(10.0, d);
    const double t = x * scale;
    if (GeneralText(t).size() == 1)
        return x;
    return CDbl(FormatWhole(t)) / scale;
}

double RoundToFigures(double &x, short &f)
{
    if (x < 1.0) {
        const std::string s = GeneralText(x);
        size_t pos = std::string::npos;
        for (size_t i = 2; i < s.size(); ++i) {
            if (s[i] != '0') {
                pos = i;
                break;
            }
        }
        if (pos == std::string::npos) // the search for a leading figure would never end
            throw RunTimeError(ErrInvalidCall,
                               "Invalid procedure call or argument (no significant figure in " + s + ")");
        const int z = static_cast<int>(pos) - 2; // leading zeros after "0."
        const double scale = std::pow(10.0, z);
        return RoundToPlaces(x * scale, f) / scale;
    }
    const short whole = toInt16(static_cast<long long>(std::floor(x)));
    const int z = static_cast<int>(std::to_string(whole).size());
    const double scale = std::pow(10.0, z);
    x = x / scale;
    return RoundToPlaces(x, f) * scale;
}

// Every chart sorts the page's array again before it draws; once sorted, that is one pass.
void BubbleSort(std::vector<int> &a)
{
    if (!std::is_sorted(a.begin(), a.end()))
        std::sort(a.begin(), a.end());
}

double MedianOf(const std::vector<int> &a)
{
    const long long u = static_cast<long long>(a.size()) - 1;
    const double half = (static_cast<double>(u) - 1.0) / 2.0;
    if (half != std::floor(half))
        return At(a, u / 2);
    const long long p = (u - 1) / 2;
    const long long q = (u + 1) / 2;
    const int lower = At(a, p);
    const int difference = subInt32(At(a, q), lower);
    return difference / 2.0 + lower;
}

namespace {

std::vector<int> copyRange(const std::vector<int> &a, long long first, long long last, bool int16Index)
{
    std::vector<int> half;
    if (last >= first)
        half.reserve(static_cast<size_t>(last - first + 1));
    long long destination = 0;
    for (long long i = first; i <= last; ++i) {
        if (int16Index)
            toInt16(destination);
        half.push_back(At(a, i));
        ++destination;
    }
    return half;
}

} // namespace

double LowerQuartileOf(const std::vector<int> &a)
{
    const long long n = static_cast<long long>(a.size());
    const long long last = n % 2 == 0 ? n / 2 - 1 : (n - 1) / 2 - 1;
    return MedianOf(copyRange(a, 0, last, false));
}

double UpperQuartileOf(const std::vector<int> &a)
{
    const long long n = static_cast<long long>(a.size());
    const long long first = n % 2 == 0 ? n / 2 : (n + 1) / 2;
    return MedianOf(copyRange(a, first, n - 1, true));
}

namespace {

// The highest count and the values that reach it, in the order they first appear.
std::string modeText(const std::vector<double> &values, const std::vector<int> &counts)
{
    int highest = counts[0];
    for (int c : counts)
        if (c > highest)
            highest = c;
    if (highest == 1)
        return "N/A";
    std::string text;
    for (size_t row = 0; row < values.size(); ++row) {
        if (counts[row] != highest)
            continue;
        if (!text.empty())
            text += ", ";
        text += GeneralText(values[row]);
    }
    return text;
}

} // namespace

std::string ModeOf(const std::vector<int> &a)
{
    const int front = At(a, 0);
    if (std::is_sorted(a.begin(), a.end())) {
        // Equal values stand together, so each run is one value and its count.
        std::vector<double> values;
        std::vector<int> counts;
        size_t i = 0;
        while (i < a.size()) {
            size_t j = i + 1;
            while (j < a.size() && a[j] == a[i])
                ++j;
            values.push_back(static_cast<double>(a[i]));
            counts.push_back(static_cast<int>(j - i));
            i = j;
        }
        return modeText(values, counts);
    }
    std::vector<double> values{static_cast<double>(front)};
    std::vector<int> counts{1};
    for (size_t i = 1; i < a.size(); ++i) {
        const double v = a[i];
        bool found = false;
        for (size_t row = 0; row < values.size(); ++row) {
            if (values[row] == v) {
                counts[row] = addInt32(counts[row], 1);
                found = true;
                break;
            }
        }
        if (!found) {
            values.push_back(v);
            counts.push_back(1);
        }
    }
    return modeText(values, counts);
}

double VarianceOf(const std::vector<int> &a, const AnalysisResults &r)
{
    double s = 0.0;
    for (int v : a)
        s += std::pow(static_cast<double>(v), 2.0);
    return s / r.SampleSize - std::pow(r.MeanValue, 2.0);
}

double StandardDeviationOf(const AnalysisResults &r)
{
    if (r.VarianceValue < 0) // the square root of a negative number is an invalid call
        raise(ErrInvalidCall);
    return std::sqrt(r.VarianceValue);
}

double LowerOutlierOf(const AnalysisResults &r) { return r.LowerQuartile - r.InterquartileRange * 1.5; }

double UpperOutlierOf(const AnalysisResults &r) { return r.UpperQuartile + r.InterquartileRange * 1.5; }

} // namespace Maths
