#include "mel/SceneReader.h"

#include "kernel/CurveText.h"
#include "kernel/Keying.h"
#include "kernel/ReferenceEdits.h"
#include "kernel/References.h"
#include "kernel/SceneSections.h"
#include "kernel/Session.h"
#include "mel/ArgumentParser.h"
#include "mel/Evaluator.h"
#include "mel/ExpressionParser.h"
#include "mel/Resolver.h"
#include "mel/builtins/CreateNode.h"
#include "mel/builtins/Quoting.h"

#include <algorithm>
#include <utility>

namespace mel {

using kernel::CommandError;
using kernel::NodePtr;
using kernel::Value;
using kernel::ValueList;

namespace {

/// Texts of more bytes are left in the file until they are asked for.
constexpr std::size_t kLongText = 4096;
/// The owner of the text is told after so many bytes that they have been read.
constexpr std::size_t kPartSize = 8 << 20;

bool isFlag(const Value& value, const char* shortName, const char* longName)
{
    const auto* text = std::get_if<std::string>(&value);
    return text && text->size() > 1 && (*text)[0] == '-'
        && (text->compare(1, std::string::npos, shortName) == 0 || text->compare(1, std::string::npos, longName) == 0);
}

bool hasFlag(const ValueList& args, const char* shortName, const char* longName)
{
    return std::any_of(args.begin(), args.end(),
                       [&](const Value& value) { return isFlag(value, shortName, longName); });
}

/// The arguments of a createNode without the flags that no host has told of; what follows such a flag goes with it.
ValueList knownCreateArguments(const ValueList& args)
{
    ValueList known;
    bool hasType = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const auto* text = std::get_if<std::string>(&args[i]);
        if (isFlag(args[i], "n", "name") || isFlag(args[i], "p", "parent")) {
            known.push_back(args[i]);
            if (i + 1 < args.size())
                known.push_back(args[++i]);
        } else if (isFlag(args[i], "s", "shared") || isFlag(args[i], "ss", "skipSelect")) {
            known.push_back(args[i]);
        } else if (text && !text->empty() && (*text)[0] != '-' && !std::exchange(hasType, true)) {
            known.push_back(args[i]);
        }
    }
    return known;
}

/// Place of the plug that a setAttr is for; the number of arguments when there is none.
std::size_t plugPlace(const ValueList& args)
{
    const auto plug = std::find_if(args.begin(), args.end(), [](const Value& value) {
        const auto* text = std::get_if<std::string>(&value);
        return text && text->find('.') != std::string::npos;  // a flag or its value has none
    });
    return std::size_t(plug - args.begin());
}

/// Name of the attribute a plug of the current node (".t[0].tx") begins with; empty when there is no such plug.
std::string ownPlug(const ValueList& args)
{
    const std::size_t place = plugPlace(args);
    if (place == args.size())
        return {};
    const std::string& plug = std::get<std::string>(args[place]);
    return plug[0] == '.' ? plug.substr(1, plug.find_first_of(".[", 1) - 1) : std::string();
}

bool isFlagWord(const Value& value)
{
    const auto* text = std::get_if<std::string>(&value);
    return text && text->size() > 1 && (*text)[0] == '-';
}

/// The arguments of `file -r`: flags with and without a value, the path last.
kernel::ReferenceRequest referenceRequest(const ValueList& args)
{
    kernel::ReferenceRequest request;
    request.file = kernel::toText(args.back());
    for (std::size_t i = 0; i + 1 < args.size(); ++i) {
        const bool hasValue = i + 2 < args.size() && !isFlagWord(args[i + 1]);
        const std::string value = hasValue ? kernel::toText(args[i + 1]) : std::string();
        if (isFlag(args[i], "ns", "namespace")) {
            request.nameSpace = value;
        } else if (isFlag(args[i], "rfn", "referenceNode")) {
            request.nodeName = value;
        } else if (isFlag(args[i], "dr", "deferReference")) {
            kernel::toBool(value, request.isDeferred);
        } else if (!isFlag(args[i], "r", "reference")) {
            request.otherFlags.push_back(args[i]);
            if (hasValue)
                request.otherFlags.push_back(args[i + 1]);
        }
        i += hasValue ? 1 : 0;
    }
    return request;
}

}  // namespace

const SceneReader::Row SceneReader::kRows[] = {
    {"setAttr", &SceneReader::setAttribute},     {"createNode", &SceneReader::createNode},
    {"rename", &SceneReader::renameNode},        {"addAttr", &SceneReader::addAttribute},
    {"connectAttr", &SceneReader::connectPlugs}, {"disconnectAttr", &SceneReader::keepLink},
    {"relationship", &SceneReader::keepLink},    {"select", &SceneReader::selectNode},
    {"parent", &SceneReader::runOnNodes},        {"lockNode", &SceneReader::lockNode},
    {"requires", &SceneReader::requireModule},   {"currentUnit", &SceneReader::runCommand},
    {"fileInfo", &SceneReader::keepFileInfo},    {"file", &SceneReader::readReference},
    {"workspace", &SceneReader::ignore},
};

const SceneReader::Row* SceneReader::findRow(std::string_view command)
{
    for (const Row& row : kRows) {
        if (command == row.command)
            return &row;
    }
    return nullptr;
}

/// A statement's arguments, long texts included.
class SceneReader::AllArguments : public kernel::Arguments {
public:
    AllArguments(const SceneReader& reader, const Statement& statement) : m_reader(reader), m_statement(statement) {}
    std::size_t size() const override { return m_statement.args.size(); }
    Value at(std::size_t index) const override
    {
        const auto text = m_statement.longTexts.find(index);
        if (text == m_statement.longTexts.end())
            return m_statement.args[index];
        const Token& token = text->second;
        m_reader.count(token.end - token.begin, token.end);
        return m_reader.m_tokens.lexer().stringContent(token);
    }

private:
    const SceneReader& m_reader;
    const Statement& m_statement;
};

SceneReader::SceneReader(Interpreter& interpreter, std::string_view text, kernel::SceneIntake& intake,
                         const kernel::PartRead& partRead)
    : m_interpreter(interpreter), m_intake(intake), m_source(Source::borrowing(text, intake.path())), m_tokens(text),
      m_partRead(partRead)
{}

SceneReader::SceneReader(Interpreter& interpreter, std::string_view text, kernel::SceneIntake& intake,
                         std::string place)
    : m_interpreter(interpreter), m_intake(intake), m_source(Source::borrowing(text, {})), m_tokens(text),
      m_place(std::move(place))
{}

bool SceneReader::read()
{
    while (!m_tokens.is(Tok::End)) {
        try {
            readStatement();
        } catch (const SyntaxError& error) {
            const bool isCutShort = m_tokens.token().end >= m_source.text().size();
            report(isCutShort ? "The file ends in the middle of a statement." : error.what(), error.at());
            skipToNextStatement(error.at());
        }
    }
    keepAbsentNode();
    return m_ok;
}

void SceneReader::readStatement()
{
    if (m_tokens.accept(Tok::Semicolon))
        return;
    Statement statement;
    statement.begin = m_tokens.at();
    if (m_tokens.accept(Tok::Global) || m_tokens.is(Tok::Proc)) {
        if (m_tokens.accept(Tok::Proc) && typeOfWord(m_tokens.kind()) != BaseType::None)
            m_tokens.advance();
        while (m_tokens.accept(Tok::LeftBracket) || m_tokens.accept(Tok::RightBracket)) {
        }
        throw SyntaxError("Cannot define a Mel procedure \"" + m_tokens.text() + "\" in a Maya Ascii file",
                          statement.begin);
    }
    if (!m_tokens.is(Tok::Identifier))
        m_tokens.fail();
    statement.command = m_tokens.text();
    m_tokens.advanceToArgument();
    while (!m_tokens.is(Tok::Semicolon)) {
        const std::size_t begin = m_tokens.at();
        statement.args.push_back(readArgument(statement));
        count(m_tokens.at() - begin, m_tokens.at());
    }
    statement.end = m_tokens.token().end;
    m_tokens.advance();
    if (!isModuleData(statement)) {
        for (const auto& text : statement.longTexts)
            statement.args[text.first] = m_tokens.lexer().stringContent(text.second);
        statement.longTexts.clear();
    }
    run(statement);
}

void SceneReader::count(std::size_t size, std::size_t end) const
{
    m_unreported += size;
    if (m_unreported < kPartSize || !m_partRead)
        return;
    m_unreported = 0;
    m_partRead(m_source.text().substr(0, end));
}

Value SceneReader::readArgument(Statement& statement)
{
    Value value;
    switch (m_tokens.kind()) {
    case Tok::String:
        if (m_tokens.token().end - m_tokens.at() > kLongText)
            statement.longTexts[statement.args.size()] = m_tokens.token();
        else
            value = m_tokens.lexer().stringContent(m_tokens.token());
        break;
    case Tok::Integer:
    case Tok::Float: value = m_tokens.lexer().numberValue(m_tokens.token()); break;
    case Tok::Flag: value = m_tokens.text(); break;
    case Tok::Word:
        if (m_tokens.followingByte() == '[')
            m_tokens.fail();
        value = m_tokens.text();
        break;
    default: {
        // Long texts are written as parts in parentheses, joined by +.
        ExpressionParser expressions(m_tokens);
        const ExprPtr argument = ArgumentParser(m_tokens, expressions).parseArgument();
        if (!isConstant(*argument))
            throw SyntaxError("Syntax error", argument->at);
        try {
            return Evaluator(m_interpreter, std::make_shared<Unit>(), 0).evaluate(*argument);
        } catch (const CommandError& error) {
            statement.isComplete = false;
            statement.failure = error.what();
            return {};
        }
    }
    }
    m_tokens.advanceToArgument();
    return value;
}

// After a statement that cannot be read: behind the next semicolon that ends a line, or at the next line that starts
// with one of a scene's commands.
void SceneReader::skipToNextStatement(std::size_t from)
{
    const std::string_view text = m_source.text();
    std::size_t lineEnd = text.find('\n', from);
    for (; lineEnd != std::string_view::npos; lineEnd = text.find('\n', lineEnd + 1)) {
        const std::size_t last = text.find_last_not_of(" \t\r", lineEnd - (lineEnd > 0));
        if (last != std::string_view::npos && last >= from && text[last] == ';')
            break;
        const std::size_t first = text.find_first_not_of(" \t", lineEnd + 1);
        if (first == std::string_view::npos)
            continue;
        const std::size_t end = text.find_first_of(" \t\r\n;\"", first);
        if (end != std::string_view::npos && findRow(text.substr(first, end - first)))
            break;
    }
    m_tokens.seek(lineEnd == std::string_view::npos ? text.size() : lineEnd + 1);
}

void SceneReader::run(const Statement& statement)
{
    const Row* row = findRow(statement.command);
    try {
        if (!row)
            throw CommandError("The command \"" + statement.command + "\" cannot stand in a scene.");
        if (!statement.isComplete) {
            if (row->run == &SceneReader::createNode || row->run == &SceneReader::selectNode)
                leaveNode();
            throw CommandError(statement.failure);
        }
        (this->*row->run)(statement);
    } catch (const CommandError& error) {
        report(error.what(), statement.begin);
    }
}

std::string SceneReader::verbatim(const Statement& statement) const
{
    return std::string(m_source.text().substr(statement.begin, statement.end - statement.begin));
}

void SceneReader::report(const std::string& message, std::size_t at)
{
    m_ok = false;
    if (!message.empty())
        m_interpreter.report(CommandError(prefix(at) + message));
}

void SceneReader::warn(const std::string& message, std::size_t at)
{
    m_interpreter.session().output.warning(prefix(at) + message);
}

std::string SceneReader::prefix(std::size_t at) const
{
    const std::string text = m_place + m_source.messagePrefix(at);
    if (m_partRead)
        m_partRead(m_source.text().substr(0, at));  // its lines were counted
    return text;
}

void SceneReader::runCommand(const Statement& statement)
{
    kernel::runCommand(m_interpreter.session(), statement.command, statement.args);
}

void SceneReader::runOnNodes(const Statement& statement)
{
    ValueList args = statement.args;
    for (Value& value : args) {
        auto* text = std::get_if<std::string>(&value);
        if (text && !text->empty() && (*text)[0] != '-')
            *text = m_intake.nameHere(*text);
    }
    kernel::runCommand(m_interpreter.session(), statement.command, args);
}

void SceneReader::ignore(const Statement&) {}

// A module that is missing does not stop the scene: its nodes are kept unread. The line that asks for it is kept in
// any case; the writer leaves it out when it says the same for the module's nodes.
void SceneReader::requireModule(const Statement& statement)
{
    std::vector<std::string> names;
    for (std::size_t i = 0; i < statement.args.size(); ++i) {
        if (isFlag(statement.args[i], "nt", "nodeType") || isFlag(statement.args[i], "dt", "dataType"))
            ++i;
        else
            names.push_back(kernel::toText(statement.args[i]));
    }
    if (names.empty())
        throw CommandError("No object was specified");
    if (names[0] == "maya")
        return;
    kernel::Session& session = m_interpreter.session();
    std::string reason;
    if (session.commands.find("loadPlugin")) {
        try {
            kernel::runCommand(session, "loadPlugin", {std::string("-quiet"), names[0]});
            return keepWithScene(verbatim(statement));
        } catch (const CommandError& error) {
            reason = error.what();
        }
    }
    if (reason.empty())
        reason = "Plug-in, \"" + names[0] + "\", was not found on MAYA_PLUG_IN_PATH.";
    warn(reason, statement.begin);
    keepWithScene(verbatim(statement));
}

// One line per key: a later one takes the earlier one's place.
void SceneReader::keepFileInfo(const Statement& statement)
{
    if (statement.args.size() != 2)
        throw CommandError("Incorrect number of objects specified");
    const std::string key = kernel::toText(statement.args[0]);
    // What is said about the program that saves the writer puts in itself.
    const bool isOwn = std::any_of(std::begin(kernel::kFileInfo), std::end(kernel::kFileInfo),
                                   [&key](const char* const(&row)[2]) { return key == row[0]; });
    if (isOwn || !m_intake.setsUpScene())
        return;
    const std::string start = "fileInfo \"" + key + "\"";
    std::vector<std::string>& kept = m_interpreter.session().scene.keptStatements;
    kept.erase(std::remove_if(kept.begin(), kept.end(),
                              [&](const std::string& other) { return other.compare(0, start.size(), start) == 0; }),
               kept.end());
    kept.push_back(verbatim(statement));
}

void SceneReader::readReference(const Statement& statement)
{
    if (hasFlag(statement.args, "rdi", "referenceDepthInfo"))
        return;  // what follows says the same of each
    if (!hasFlag(statement.args, "r", "reference") || statement.args.empty())
        throw CommandError("Only references to other files can stand in a scene.");
    kernel::takeReference(m_interpreter.session(), m_intake, referenceRequest(statement.args),
                          [&](const std::string& message) { warn(message, statement.begin); });
}

/// Connects a curve with the attribute it drives; every other link is kept as it stands.
void SceneReader::connectPlugs(const Statement& statement)
{
    const kernel::Scene& scene = m_interpreter.session().scene;
    std::vector<kernel::Plug> ends;
    for (const Value& value : statement.args) {
        const auto* text = std::get_if<std::string>(&value);
        if (!text || text->empty() || (*text)[0] == '-')
            continue;
        const std::size_t dot = std::min(text->find('.'), text->size());
        const NodePtr node = m_intake.find(text->substr(0, dot));
        ends.push_back(node ? kernel::findPlug(scene, scene.fullPath(*node) + text->substr(dot)) : kernel::Plug());
    }
    if (ends.size() != 2 || !kernel::isCurveOutput(ends[0]) || !ends[1].attribute
        || !kernel::canBeAnimated(*ends[1].node, *ends[1].attribute))
        return keepLink(statement);
    if (!m_intake.takesSettingsOf(*ends[1].node))
        return;
    if (ends[1].node->isAnimated(*ends[1].attribute) && !hasFlag(statement.args, "f", "force"))
        throw CommandError("'" + ends[1].node->name() + '.' + ends[1].attribute->longName
                           + "' has an incoming connection already.");
    ends[1].node->setCurve(ends[1].attribute, ends[0].node);
}

// The file's links and the like mean its own names.
void SceneReader::keepLink(const Statement& statement)
{
    if (m_intake.setsUpScene())
        return keepWithScene(verbatim(statement));
    std::string here = statement.command;
    for (const Value& value : statement.args) {
        const auto* text = std::get_if<std::string>(&value);
        const bool isName = text && (text->empty() || (*text)[0] != '-');
        here += ' ' + (isName ? quoted(m_intake.nameHere(*text)) : kernel::toText(value));
    }
    keepWithScene(here + ';');
}

void SceneReader::keepWithScene(const std::string& statement)
{
    if (m_intake.purpose() == kernel::SceneIntake::Purpose::Reference)
        return;  // the referenced file has it
    std::vector<std::string>& kept = m_interpreter.session().scene.keptStatements;
    if (std::find(kept.begin(), kept.end(), statement) == kept.end())
        kept.push_back(statement);
}

void SceneReader::keepWithNode(const Statement& statement)
{
    if (const NodePtr node = m_interpreter.sceneNode())
        node->unknownStatements.push_back(verbatim(statement));
}

// Default nodes that this host does not have are set all the same when the scene is written back.
void SceneReader::keepWithAbsentNode(const Statement& statement)
{
    if (!m_absentNode.empty())
        m_absentNode += "\n\t" + verbatim(statement);
}

void SceneReader::keepAbsentNode()
{
    if (!m_absentNode.empty())
        keepWithScene(std::exchange(m_absentNode, {}));
}

void SceneReader::leaveNode()
{
    keepAbsentNode();
    m_addedAttributes.clear();
    m_skipping = true;
    m_interpreter.setSceneNode(nullptr);
}

void SceneReader::createNode(const Statement& statement)
{
    leaveNode();
    CreateNodeArguments arguments;
    try {
        arguments = parseCreateNode(statement.args);
    } catch (const CommandError& error) {
        report(error.what(), statement.begin);
        arguments = parseCreateNode(knownCreateArguments(statement.args));
    }
    kernel::NodeRequest request;
    request.type = arguments.type;
    request.name = arguments.name;
    request.shared = arguments.shared;
    request.parent = parentOf(arguments, statement);
    if (!request.parent)
        request.absentParent = m_intake.pathHere(arguments.parent);
    if (!m_interpreter.session().nodeTypes.find(request.type)) {
        warn("Unknown object type: " + request.type + ". The node " + request.name + " is kept unread.",
             statement.begin);
    }
    enterNode(m_intake.createNode(request));
}

NodePtr SceneReader::parentOf(const CreateNodeArguments& arguments, const Statement& statement)
{
    if (arguments.parent.empty())
        return nullptr;
    const NodePtr parent = m_intake.find(arguments.parent);
    if (!parent)
        report("No object matches name: " + arguments.parent, statement.begin);
    else
        m_interpreter.session().scene.makeUnknownTransform(parent);  // only transforms have children
    return parent;
}

void SceneReader::enterNode(const NodePtr& node)
{
    m_skipping = !node || !m_intake.takesSettingsOf(*node);
    m_interpreter.setSceneNode(m_skipping ? nullptr : node);
}

void SceneReader::renameNode(const Statement& statement)
{
    if (!hasFlag(statement.args, "uid", "uuid"))
        return renameOtherNode(statement);
    const NodePtr node = m_interpreter.sceneNode();
    if (node && !statement.args.empty())
        node->setUid(kernel::toText(statement.args.back()));
}

/// Gives a node that is named another name.
void SceneReader::renameOtherNode(const Statement& statement)
{
    if (statement.args.size() != 2)
        throw CommandError("Incorrect number of objects specified");
    const std::string before = kernel::toText(statement.args[0]);
    const std::string after = kernel::toText(statement.args[1]);
    const NodePtr node = m_intake.find(before);
    if (!node)
        throw CommandError("No object matches name: " + before);
    if (!m_intake.takesSettingsOf(*node))
        return;
    kernel::renameNodeEdit(node, m_intake.nameFor(after))->redo(m_interpreter.session().scene);
    m_intake.remember(after, node);
}

void SceneReader::setAttribute(const Statement& statement)
{
    const std::string own = ownPlug(statement.args);
    if (own.empty())
        return setOtherNode(statement);
    if (m_skipping)
        return keepWithAbsentNode(statement);
    const NodePtr node = m_interpreter.sceneNode();
    if (node && node->typeName() == "reference")
        return setReferenceNode(statement, own);
    if (node && node->curve() && kernel::isKeyAttribute(own))
        return setKeys(statement);
    if (node && (!node->unknownType.empty() || m_addedAttributes.count(own)))
        return keepWithNode(statement);
    if (node && !node->attribute(own))
        keepWithNode(statement);  // and say below that it has no effect
    const AllArguments all(*this, statement);
    const Interpreter::SceneArguments lent(m_interpreter, isModuleData(statement) ? &all : nullptr);
    runCommand(statement);
}

/// Sets the keys of a curve; what cannot be read of them is written back as it stands.
void SceneReader::setKeys(const Statement& statement)
{
    const auto place = static_cast<std::ptrdiff_t>(plugPlace(statement.args));
    const ValueList values(statement.args.begin() + place + 1, statement.args.end());
    const std::string& plug = std::get<std::string>(statement.args[std::size_t(place)]);
    try {
        kernel::readKeys(m_interpreter.session().scene, *m_interpreter.sceneNode(), plug, values, verbatim(statement));
    } catch (const CommandError&) {
        keepWithNode(statement);
        throw;
    }
}

bool SceneReader::isModuleData(const Statement& statement) const
{
    if (statement.command != "setAttr" || ownPlug(statement.args).empty())
        return false;
    const auto type = std::find_if(statement.args.begin(), statement.args.end(),
                                   [](const Value& value) { return isFlag(value, "typ", "type"); });
    return type != statement.args.end() && type + 1 != statement.args.end()
        && m_interpreter.session().dataTypes.find(kernel::toText(*(type + 1)));
}

/// Sets a plug that names its node.
void SceneReader::setOtherNode(const Statement& statement)
{
    ValueList args = statement.args;
    const std::size_t place = plugPlace(args);
    if (place < args.size()) {
        auto& plug = std::get<std::string>(args[place]);
        const NodePtr node = m_intake.find(plug.substr(0, plug.find('.')));
        if (node && !m_intake.takesSettingsOf(*node))
            return;
        plug = m_intake.nameHere(plug);
    }
    kernel::runCommand(m_interpreter.session(), statement.command, args);
}

// What the scene changes in the nodes of a reference; all else of a reference node is kept as it stands.
void SceneReader::setReferenceNode(const Statement& statement, const std::string& own)
{
    kernel::Reference* const reference = kernel::referenceOf(m_interpreter.session().scene, *m_interpreter.sceneNode());
    const auto type = std::find_if(statement.args.begin(), statement.args.end(),
                                   [](const Value& value) { return isFlag(value, "typ", "type"); });
    const bool isEdits = reference && (own == "ed" || own == "edits") && statement.args.end() - type > 1;
    if (!isEdits || !kernel::parseReferenceEdits(ValueList(type + 2, statement.args.end()), reference->keptEdits))
        return keepWithNode(statement);
    if (reference->isLoaded)
        applyEdits(*reference, statement.begin);
}

/// Sets what can be set; that is then in the nodes, and the rest stays with the reference, what is refused included.
void SceneReader::applyEdits(kernel::Reference& reference, std::size_t at)
{
    const std::string place = prefix(at);
    const auto isSet = [&](const ValueList& edit) {
        const std::string statement = settingStatement(edit);
        if (statement.empty())
            return false;
        const bool isDone = SceneReader(m_interpreter, statement, m_intake, place).read();
        m_ok = m_ok && isDone;
        return isDone;
    };
    for (kernel::ReferenceEdits& section : reference.keptEdits)
        section.edits.erase(std::remove_if(section.edits.begin(), section.edits.end(), isSet), section.edits.end());
}

/// The setAttr that a change of a reference is; empty for other changes and for those of what the file does not have.
std::string SceneReader::settingStatement(const ValueList& edit) const
{
    if (edit.size() != 4 || !(edit[0] == Value(kernel::kSetAttrEdit)))
        return {};
    const std::string attribute = kernel::toText(edit[2]);
    const NodePtr node = m_intake.find(kernel::toText(edit[1]));
    if (!node || !node->attribute(attribute.substr(attribute.rfind('.') + 1)))
        return {};
    return "setAttr " + quoted(kernel::toText(edit[1]) + '.' + attribute) + kernel::toText(edit[3]) + ';';
}

void SceneReader::addAttribute(const Statement& statement)
{
    if (m_skipping)
        return keepWithAbsentNode(statement);
    for (std::size_t i = 0; i + 1 < statement.args.size(); ++i) {
        if (isFlag(statement.args[i], "ln", "longName") || isFlag(statement.args[i], "sn", "shortName"))
            m_addedAttributes.insert(kernel::toText(statement.args[i + 1]));
    }
    keepWithNode(statement);
}

// `select -ne :time1` chooses the node that the following settings are for; the user's selection stays.
void SceneReader::selectNode(const Statement& statement)
{
    leaveNode();
    NodePtr node;
    for (const Value& value : statement.args) {
        if (!isFlag(value, "ne", "noExpand"))
            node = m_intake.find(kernel::toText(value));
    }
    enterNode(node);
    if (!node && m_intake.setsUpScene())
        m_absentNode = verbatim(statement);
}

void SceneReader::lockNode(const Statement& statement)
{
    if (m_skipping)
        keepWithAbsentNode(statement);
    else
        keepWithNode(statement);
}

}  // namespace mel
