#pragma once

#include <QTest>

#include <tuple>

// Runs `check` on each case (a tuple whose first element names it) as a data row would run;
// a failing case is named after its failure and ends the test.
template <typename Cases, typename Check>
void checkEachCase(const Cases& cases, const Check& check) {
    for (const auto& one : cases) {
        std::apply(check, one);
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(QStringLiteral("in the case \"%1\"").arg(std::get<0>(one))));
    }
}
