#pragma once

#include <iterator>
#include <memory>
#include <QtGlobal>
#include <random>
#include <utility>
#include <vector>

namespace platform {

/// A sequence of blocks that is searched by running totals: a balanced binary tree (of the
/// randomised kind) whose nodes know the sum over all below them.
///
/// `Block` names a type `Summary`, default-constructed to nothing, with `operator+`, and has a
/// cheap `summary() const`. Finding, stepping and replacing cost O(log blocks), expected.
///
/// The tree owns the nodes. A `Node *` stays valid until its block is replaced; a `Place` until
/// anything before it changes. One thread at a time.
template <class Block>
class BlockTree
{
public:
    using Summary = typename Block::Summary;

    class Node
    {
    public:
        explicit Node(Block content) : block(std::move(content)) {}

        /// Whoever changes its summary calls `update`.
        Block block;

        Node *next() { return step(&Node::m_right, &Node::m_left); }
        Node *previous() { return step(&Node::m_left, &Node::m_right); }

    private:
        friend class BlockTree;
        using Child = std::unique_ptr<Node>;
        Node *step(Child Node::*towards, Child Node::*away);

        Child m_left;
        Child m_right;
        Node *m_parent = nullptr;
        Summary m_total; ///< Of this node and all below it.
        qsizetype m_count = 1;
    };

    /// A node with the sum of all blocks before it. The node is null in an empty tree.
    struct Place
    {
        Node *node = nullptr;
        Summary before;

        Place next() const { return {node->next(), before + node->block.summary()}; }
    };

    bool isEmpty() const { return !m_root; }
    Summary summary() const { return m_root ? m_root->m_total : Summary(); }

    /// The block in which the running total of `dimension` passes `target`; the last block when the
    /// total does not.
    Place find(qsizetype Summary::*dimension, qsizetype target) const;

    /// In place of everything.
    void assign(std::vector<Block> blocks);

    /// In place of the blocks from `first` up to and with `last`, which may be the same node. One
    /// block for one keeps the node.
    void replace(Node *first, Node *last, std::vector<Block> blocks);

    /// The node's block has changed its summary.
    void update(Node *node);

private:
    using Child = typename Node::Child;
    using Iterator = std::move_iterator<typename std::vector<Block>::iterator>;

    static qsizetype countOf(const Child &node) { return node ? node->m_count : 0; }
    static Summary totalOf(const Child &node) { return node ? node->m_total : Summary(); }
    static qsizetype rank(const Node *node);
    static void refresh(Node *node);
    static Child build(Iterator first, Iterator last);
    static std::pair<Child, Child> split(Child node, qsizetype count);
    Child merge(Child left, Child right);

    Child m_root;
    std::minstd_rand m_random;
};

template <class Block>
auto BlockTree<Block>::Node::step(Child Node::*towards, Child Node::*away) -> Node *
{
    Node *node = this;
    if (node->*towards) {
        node = (node->*towards).get();
        while (node->*away)
            node = (node->*away).get();
        return node;
    }
    while (node->m_parent && (node->m_parent->*towards).get() == node)
        node = node->m_parent;
    return node->m_parent;
}

template <class Block>
auto BlockTree<Block>::find(qsizetype Summary::*dimension, qsizetype target) const -> Place
{
    Summary before;
    Node *node = m_root.get();
    while (node) {
        const Summary here = before + totalOf(node->m_left);
        if (node->m_left && target < here.*dimension) {
            node = node->m_left.get();
            continue;
        }
        const Summary after = here + node->block.summary();
        if (target < after.*dimension || !node->m_right)
            return {node, here};
        before = after;
        node = node->m_right.get();
    }
    return {};
}

template <class Block>
void BlockTree<Block>::assign(std::vector<Block> blocks)
{
    m_root = build(Iterator(blocks.begin()), Iterator(blocks.end()));
}

template <class Block>
void BlockTree<Block>::replace(Node *first, Node *last, std::vector<Block> blocks)
{
    if (first == last && blocks.size() == 1) {
        first->block = std::move(blocks.front());
        update(first);
        return;
    }
    const qsizetype from = rank(first);
    auto [front, tail] = split(std::move(m_root), rank(last) + 1);
    auto [head, replaced] = split(std::move(front), from);
    Child middle = build(Iterator(blocks.begin()), Iterator(blocks.end()));
    m_root = merge(merge(std::move(head), std::move(middle)), std::move(tail));
    if (m_root)
        m_root->m_parent = nullptr;
}

template <class Block>
void BlockTree<Block>::update(Node *node)
{
    for (; node; node = node->m_parent)
        node->m_total = totalOf(node->m_left) + node->block.summary() + totalOf(node->m_right);
}

template <class Block>
qsizetype BlockTree<Block>::rank(const Node *node)
{
    qsizetype count = countOf(node->m_left);
    for (; node->m_parent; node = node->m_parent) {
        if (node->m_parent->m_right.get() == node)
            count += countOf(node->m_parent->m_left) + 1;
    }
    return count;
}

template <class Block>
void BlockTree<Block>::refresh(Node *node)
{
    for (const Child *child : {&node->m_left, &node->m_right}) {
        if (*child)
            (*child)->m_parent = node;
    }
    node->m_count = countOf(node->m_left) + 1 + countOf(node->m_right);
    node->m_total = totalOf(node->m_left) + node->block.summary() + totalOf(node->m_right);
}

template <class Block>
auto BlockTree<Block>::build(Iterator first, Iterator last) -> Child
{
    if (first == last)
        return nullptr;
    const Iterator middle = first + (last - first) / 2;
    auto node = std::make_unique<Node>(*middle);
    node->m_left = build(first, middle);
    node->m_right = build(middle + 1, last);
    refresh(node.get());
    return node;
}

/// The first `count` blocks, and the others.
template <class Block>
auto BlockTree<Block>::split(Child node, qsizetype count) -> std::pair<Child, Child>
{
    if (!node)
        return {};
    node->m_parent = nullptr;
    if (count <= countOf(node->m_left)) {
        auto [first, second] = split(std::move(node->m_left), count);
        node->m_left = std::move(second);
        refresh(node.get());
        return {std::move(first), std::move(node)};
    }
    auto [first, second] = split(std::move(node->m_right), count - countOf(node->m_left) - 1);
    node->m_right = std::move(first);
    refresh(node.get());
    return {std::move(node), std::move(second)};
}

/// Each node becomes the root with the chance that its size gives it, so the depth stays
/// logarithmic whatever the edits were.
template <class Block>
auto BlockTree<Block>::merge(Child left, Child right) -> Child
{
    if (!left || !right)
        return left ? std::move(left) : std::move(right);
    if (qsizetype(m_random()) % (left->m_count + right->m_count) < left->m_count) {
        left->m_right = merge(std::move(left->m_right), std::move(right));
        refresh(left.get());
        return left;
    }
    right->m_left = merge(std::move(left), std::move(right->m_left));
    refresh(right.get());
    return right;
}

} // namespace platform
