#pragma once
// Made-up texts for the benches: the same words and seed everywhere, so that the figures of one bench can
// be set beside another's.
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <random>
#include <vector>

// Words drawn by Zipf's law, as the words of a real text are: the law's common words first, then made-up
// words to 30,000, with "input" and "credit" at ranks 250 and 300, where a word stands in about a quarter
// of 5,000-byte documents.
struct ZipfTexts {
    explicit ZipfTexts(int bytes) : textBytes(bytes) { init(); }
    int textBytes;
    QStringList words;
    std::mt19937 rng{2009};
    std::discrete_distribution<int> pick;
    void init() {
        words = QStringLiteral("the of tax and to in a by dealer goods is for on sale be under section this "
                               "or rate as that with return from any officer month turnover state shall "
                               "purchase registered act which not assessment paid penalty period year "
                               "notification circular rules schedule exempt works contract")
                    .split(u' ');
        static const char* syllables[] = {"ka", "ra", "ma", "la", "na", "pa", "ta", "va", "sa", "da",
                                          "ri", "mo", "nu", "le", "tho", "shi", "kku", "ppa", "ndi", "yam"};
        std::mt19937 make(7);
        std::uniform_int_distribution<int> syllable(0, 19), length(2, 4);
        while (words.size() < 30000) {
            if (words.size() == 249) words << QStringLiteral("input");
            if (words.size() == 299) words << QStringLiteral("credit");
            QString w;
            for (int n = length(make); n > 0; --n) w += QLatin1String(syllables[syllable(make)]);
            words << w;
        }
        std::vector<double> weights;
        for (qsizetype r = 1; r <= words.size(); ++r) weights.push_back(1.0 / double(r));
        pick = std::discrete_distribution<int>(weights.begin(), weights.end());
    }
    QByteArray next() {
        QString text;
        int sentence = 0;
        while (text.size() < textBytes) {
            text += words[pick(rng)];
            text += ++sentence % 14 == 0 ? QStringLiteral(".\n") : QStringLiteral(" ");
        }
        return text.toUtf8();
    }
};

