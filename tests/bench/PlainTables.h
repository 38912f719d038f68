#pragma once

#include "tests/bench/PlainSql.h"

/// The former layout: a table of the engine for each chart and each week.
class PlainTables : public PlainSql {
public:
    using PlainSql::PlainSql;

    void SaveAgain(const std::string& chart, const std::string& history, const std::string& owner,
                   int jobs) override;
    QStringList ChartNames() override;
    QStringList ChartsOf(const std::string& owner, const std::string& today,
                         const std::string& weekAgo) override;
    int ReadHistory(const std::string& owner) override;

private:
    void MakeTable(const std::string& name);
};
