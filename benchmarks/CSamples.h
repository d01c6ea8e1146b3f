#pragma once

#include <vector>

/// Times of one thing, of which the median is quoted: single times mean little on a shared machine.
class CSamples
{
public:
    /// Runs fnWork on this thread, keeps and returns the processor time that this thread took for it, in
    /// seconds: what else runs on the machine takes no part.
    template <typename Work> double Time(Work fnWork)
    {
        const double fBegin = ThreadSeconds();
        fnWork();
        return Add(ThreadSeconds() - fBegin);
    }

    /// The same on the wall's clock, for work that other threads take part in.
    template <typename Work> double TimeByWall(Work fnWork)
    {
        const double fBegin = WallSeconds();
        fnWork();
        return Add(WallSeconds() - fBegin);
    }

    double Add(double fSeconds);

    /// Seconds; 0 without samples.
    double Median() const;

private:
    static double ThreadSeconds();
    static double WallSeconds();

    std::vector<double> vecSeconds;
};

/// The k of t = c * n^k that fits best, by least squares over the logarithms. At least two sizes.
double GrowthExponent(const std::vector<int>& vecSize, const std::vector<double>& vecSeconds);
