#include "console/report/block_counts.h"

#include <algorithm>

namespace console::report {
namespace {

std::uint64_t product(std::uint64_t a, std::uint64_t b) {
  return a != 0 && b > kMaxInstances / a ? kMaxInstances : a * b;
}

std::uint64_t sum(std::uint64_t a, std::uint64_t b) {
  return std::min(a + b, kMaxInstances); // both are at most kMaxInstances
}

// Edges by the block that they start from.
std::vector<std::vector<Edge>> edgesOut(std::size_t blocks, const std::vector<Edge>& edges) {
  std::vector<std::vector<Edge>> out(blocks);
  for (const Edge& edge : edges)
    out[edge.from].push_back(edge);
  return out;
}

// Blocks in an order in which each comes before those that it contains. Definitions have no cycles; the blocks of a
// cycle would be skipped.
std::vector<std::size_t> outerFirst(const std::vector<std::vector<Edge>>& out) {
  std::vector<std::size_t> waiting(out.size());
  for (const auto& edges : out) {
    for (const Edge& edge : edges)
      ++waiting[edge.to];
  }
  std::vector<std::size_t> order;
  for (std::size_t at = 0; at < out.size(); ++at) {
    if (waiting[at] == 0)
      order.push_back(at);
  }
  for (std::size_t next = 0; next < order.size(); ++next) {
    for (const Edge& edge : out[order[next]]) {
      if (--waiting[edge.to] == 0)
        order.push_back(edge.to);
    }
  }
  return order;
}

} // namespace

Counts& Counts::operator+=(const Counts& other) {
  direct += other.direct;
  nested = sum(nested, other.nested);
  return *this;
}

void countReferences(std::vector<Block>& blocks, const std::vector<Edge>& edges, std::size_t space) {
  const auto out = edgesOut(blocks.size(), edges);
  const auto order = outerFirst(out);
  for (const std::size_t at : order) {
    const std::uint64_t times = at == space ? 1 : blocks[at].references.nested;
    for (const Edge& edge : out[at]) {
      Counts& inner = blocks[edge.to].references;
      ++inner.direct;
      inner.nested = sum(inner.nested, product(times, edge.instances));
    }
  }
  for (auto at = order.rbegin(); at != order.rend(); ++at) {
    for (const Edge& edge : out[*at])
      blocks[*at].depth = std::max(blocks[*at].depth, blocks[edge.to].depth + 1);
  }
}

} // namespace console::report
