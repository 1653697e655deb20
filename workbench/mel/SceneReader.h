#pragma once

#include "kernel/Arguments.h"
#include "kernel/SceneIntake.h"
#include "kernel/Script.h"
#include "mel/Source.h"
#include "mel/TokenStream.h"

#include <map>
#include <set>
#include <string>
#include <string_view>

namespace mel {

class Interpreter;
struct CreateNodeArguments;

/// Reads a text scene: the script language cut down to a few commands with plain arguments, run statement by
/// statement. An error is reported with file and line and reading goes on with the next statement.
///
/// Scenes with drawings hold strings of many megabytes: long ones stay in the text until their argument is asked for.
class SceneReader {
public:
    /// Reads a whole file, which messages name with the line. text: must outlive the reader.
    SceneReader(Interpreter& interpreter, std::string_view text, kernel::SceneIntake& intake,
                const kernel::PartRead& partRead);
    /// Reads statements that stand elsewhere. place: goes before every message.
    SceneReader(Interpreter& interpreter, std::string_view text, kernel::SceneIntake& intake, std::string place);
    /// False when there was any error.
    bool read();

private:
    struct Statement {
        std::string command;
        kernel::ValueList args;
        std::map<std::size_t, Token> longTexts;  ///< by their places in `args`, where nothing stands yet
        std::size_t begin = 0;
        std::size_t end = 0;  ///< behind the semicolon
        bool isComplete = true;
        std::string failure;  ///< why an argument has no value, when the statement is not complete
    };
    class AllArguments;
    using Handler = void (SceneReader::*)(const Statement& statement);
    struct Row {
        const char* command;
        Handler run;
    };
    static const Row kRows[];
    static const Row* findRow(std::string_view command);

    void readStatement();
    /// A part of the text has been read, up to `end`.
    void count(std::size_t size, std::size_t end) const;
    kernel::Value readArgument(Statement& statement);
    void skipToNextStatement(std::size_t from);
    void run(const Statement& statement);
    std::string verbatim(const Statement& statement) const;
    /// Where something stands, for a message.
    std::string prefix(std::size_t at) const;
    void report(const std::string& message, std::size_t at);
    void warn(const std::string& message, std::size_t at);

    // What a scene's commands do; the rows name them.
    void runCommand(const Statement& statement);
    void runOnNodes(const Statement& statement);
    void requireModule(const Statement& statement);
    void keepFileInfo(const Statement& statement);
    void readReference(const Statement& statement);
    void createNode(const Statement& statement);
    void renameNode(const Statement& statement);
    void renameOtherNode(const Statement& statement);
    void setAttribute(const Statement& statement);
    void setKeys(const Statement& statement);
    bool isModuleData(const Statement& statement) const;
    void setOtherNode(const Statement& statement);
    void setReferenceNode(const Statement& statement, const std::string& own);
    void applyEdits(kernel::Reference& reference, std::size_t at);
    std::string settingStatement(const kernel::ValueList& edit) const;
    void addAttribute(const Statement& statement);
    void selectNode(const Statement& statement);
    void lockNode(const Statement& statement);
    void connectPlugs(const Statement& statement);
    void keepLink(const Statement& statement);
    void ignore(const Statement& statement);

    kernel::NodePtr parentOf(const CreateNodeArguments& arguments, const Statement& statement);
    /// What follows belongs to this node, or to none if that is null or what the file says of it does not count.
    void enterNode(const kernel::NodePtr& node);
    /// What follows belongs to no node until one is created or selected.
    void leaveNode();
    void keepWithAbsentNode(const Statement& statement);
    void keepAbsentNode();
    void keepWithNode(const Statement& statement);
    void keepWithScene(const std::string& statement);

    Interpreter& m_interpreter;
    kernel::SceneIntake& m_intake;
    const Source m_source;
    TokenStream m_tokens;
    const kernel::PartRead m_partRead;
    const std::string m_place;             ///< of a piece that has no lines
    mutable std::size_t m_unreported = 0;  ///< bytes read since the text's owner was told
    std::string m_absentNode;              ///< the statements so far about a default node that this host does not have
    std::set<std::string> m_addedAttributes;  ///< names, long and short, that the scene gave its current node itself
    bool m_skipping = false;  ///< the current node could not be made, or is a default node the workbench lacks
    bool m_ok = true;
};

}  // namespace mel
