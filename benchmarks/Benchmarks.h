// What there is to measure without a desktop. Each adds its benchmarks to those that the program runs.
#pragma once

namespace norra::benchmarks {

/// Writing and reading a report of each kind.
void registerWireFormat();
/// The meaning of one click.
void registerClassification();
/// How the cost grows with long names, deep trees and long lists.
void registerGrowth();
/// The whole service on a simulated desktop.
void registerThroughput();

}  // namespace norra::benchmarks
