#pragma once
// Made-up circular titles for the benches: the same words and seed everywhere, so that the figures of one
// bench can be set beside another's.
#include <QString>
#include <iterator>
#include <random>

struct CircularTitles {
    std::mt19937 rng{1982};
    // The next title's words and its label, as "Cir. No. 12/2004".
    std::pair<QString, QString> next() {
        static const char* words[] = {"Clarification", "on", "input", "tax", "credit", "for", "works", "contract",
                                      "dealers", "Exemption", "Kerala", "Value", "Added", "Tax", "Rules",
                                      "Schedule", "rate", "of", "goods", "sale", "purchase", "return", "assessment",
                                      "penalty", "interest", "Section", "registration", "turnover", "compounding"};
        std::uniform_int_distribution<int> word(0, int(std::size(words)) - 1), length(6, 14), number(1, 99);
        QString name;
        for (int w = length(rng); w > 0; --w) name += QString::fromUtf8(words[word(rng)]) + u' ';
        const QString label = QStringLiteral("Cir. No. %1/%2").arg(number(rng)).arg(1990 + number(rng) % 20);
        return {name.trimmed(), label};
    }
};
