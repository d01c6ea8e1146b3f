#pragma once

#include <vector>

/// Times of one thing, of which the median is quoted: single times mean little on a shared machine. Under callgrind each of them
/// also is a dump of its own with the instructions of that one time, which ratios.py reads.
class CSamples
{
public:
    /// szNameIn, a literal, is what the dumps are called.
    explicit CSamples(const char* szNameIn) : szName(szNameIn) { }

    /// Runs fnWork on this thread, keeps and returns the processor time that this thread took for it, in
    /// seconds: what else runs on the machine takes no part.
    template <typename Work> double Time(Work fnWork)
    {
        return Measure(ThreadSeconds, fnWork);
    }

    /// The same on the wall's clock, for work that other threads take part in.
    template <typename Work> double TimeByWall(Work fnWork)
    {
        return Measure(WallSeconds, fnWork);
    }

    double Add(double fSeconds);

    /// Seconds; 0 without samples.
    double Median() const;

private:
    template <typename Clock, typename Work> double Measure(Clock fnClock, Work fnWork)
    {
        BeginCount();
        const double fBegin = fnClock();
        fnWork();
        const double fSeconds = fnClock() - fBegin;
        EndCount();
        return Add(fSeconds);
    }

    static double ThreadSeconds();
    static double WallSeconds();
    static void BeginCount();
    void EndCount() const;

    const char* szName;
    std::vector<double> vecSeconds;
};

/// The value in the middle; 0 of none.
double Median(const std::vector<double>& vecValue);

/// The k of t = c * n^k that fits best, by least squares over the logarithms. At least two sizes.
double GrowthExponent(const std::vector<int>& vecSize, const std::vector<double>& vecSeconds);
