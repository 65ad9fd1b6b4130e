#pragma once
// Chance for the tests' delays and choices: Rnd gives a single in [0, 1), Randomize reseeds
// from the clock. Tests script the values instead.

#include <deque>
#include <random>

class RandomSource {
public:
    RandomSource();
    void Randomize();
    float Rnd();

    // Scripted values are returned first, in order, before chance takes over again.
    void script(std::initializer_list<float> values) { m_script.insert(m_script.end(), values); }
    size_t scriptedLeft() const { return m_script.size(); }

    // The whole part of (Rnd * span + low): for example 1..5 with span 5 and low 1.
    int wholeBetween(int span, int low);

private:
    std::mt19937 m_engine;
    std::deque<float> m_script;
};
