#include <benchmark/benchmark.h>

#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "table.h"

int main(int argc, char** argv) try {
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  bench::table table;
  benchmark::RunSpecifiedBenchmarks(&table);
  return table.has_miss() ? 1 : 0;
} catch (const std::exception& failure) {
  std::fprintf(stderr, "%s\n", failure.what());
  std::_Exit(2);  // forms that are still open would outlive the application object
}
