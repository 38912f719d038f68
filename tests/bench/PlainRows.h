#pragma once

#include "tests/bench/PlainSql.h"

#include <cstdint>

/// The layout of today: the rows of all charts in one table, their names in a catalogue.
class PlainRows : public PlainSql {
public:
    using PlainSql::PlainSql;

    void SaveAgain(const std::string& chart, const std::string& history, const std::string& owner,
                   int jobs) override;
    QStringList ChartNames() override;
    QStringList ChartsOf(const std::string& owner, const std::string& today,
                         const std::string& weekAgo) override;
    int ReadHistory(const std::string& owner) override;

private:
    int64_t IdOf(const std::string& name);
    void Drop(const std::string& name);
    int64_t Make(const std::string& name);
};
