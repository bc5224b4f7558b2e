#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace oz {
class Node;
}

namespace oz::scene {

// What the commands of a scene file see while the file is read: the nodes
// whose construction waits until their stored values are in, and the nodes
// that could not be made. One exists while a file is read. (Where the
// statement running now stands is the message log's origin.)
class ReadContext {
public:
    ReadContext();
    ~ReadContext();
    ReadContext(const ReadContext&) = delete;
    ReadContext& operator=(const ReadContext&) = delete;

    static ReadContext* active();

    // A node read from a file is constructed (postConstructor) once the
    // statements that set its stored values have run, so that it sees them,
    // as it would see a loaded scene.
    void deferConstruction(std::shared_ptr<Node> node);
    void finishConstructions();

    // Statements about a node that could not be made are skipped without
    // an error each; the failed createNode reported the problem once.
    void skipNode(std::string name);
    bool isSkipped(std::string_view name) const;
    std::size_t skippedStatements() const { return m_skippedStatements; }
    void countSkippedStatement() { ++m_skippedStatements; }

private:
    std::vector<std::shared_ptr<Node>> m_deferred;
    std::unordered_set<std::string> m_skipped;
    std::size_t m_skippedStatements = 0;
    ReadContext* m_previous;
};

} // namespace oz::scene
