// The call of a stored procedure: its select, with the arguments in place of the parameters.
#include <algorithm>

#include "platform/tsql/binder.h"
#include "platform/tsql/lexer.h"
#include "platform/tsql/parser.h"
#include "platform/tsql/types.h"

namespace tela::tsql {
namespace {

[[noreturn]] void throw_call(const std::string& message, std::size_t position) {
  throw CompileError(CompileError::Kind::syntax, message, position);
}

std::size_t parameter_index(const CreateProcedure& procedure, const std::string& name,
                            std::size_t position) {
  const auto found = std::ranges::find_if(
      procedure.parameters, [&](const auto& parameter) { return same_name(parameter.name, name); });
  if (found == procedure.parameters.end()) {
    throw_call(name + " is not a parameter for procedure " + procedure.name + ".", position);
  }
  return static_cast<std::size_t>(found - procedure.parameters.begin());
}

// The argument of each parameter, in their order, typed as the parameter is.
std::vector<ExprPtr> match_arguments(const CreateProcedure& procedure, const Execute& execute) {
  std::vector<ExprPtr> values(procedure.parameters.size());
  std::size_t next = 0;
  for (const Execute::Argument& argument : execute.arguments) {
    const std::size_t index =
        argument.parameter.empty()
            ? next++
            : parameter_index(procedure, argument.parameter, execute.position);
    if (index >= values.size()) {
      throw_call("Procedure or function " + procedure.name + " has too many arguments specified.",
                 execute.position);
    }
    values[index] = clone(*argument.value);
  }
  for (std::size_t i = 0; i < values.size(); ++i) {
    const CreateProcedure::Parameter& parameter = procedure.parameters[i];
    if (!values[i]) {
      throw_call("Procedure or function '" + procedure.name + "' expects parameter '" +
                     parameter.name + "', which was not supplied.",
                 execute.position);
    }
    if (values[i]->kind != ExprKind::literal) continue;
    values[i]->type = parse_type_name(parameter.type);
    values[i]->type.length = 0;
  }
  return values;
}

}  // namespace

SelectPtr expand_procedure(const Execute& execute, const Schema& schema) {
  const auto text = schema.find_procedure(execute.procedure);
  if (!text) {
    throw CompileError(CompileError::Kind::unknown_name,
                       "Could not find stored procedure '" + execute.procedure + "'.",
                       execute.position);
  }
  Parsed parsed = parse(*text);
  auto* procedure = std::get_if<CreateProcedure>(&parsed.statement);
  if (procedure == nullptr) {
    throw_call("The stored procedure '" + execute.procedure + "' is damaged.", execute.position);
  }
  const std::vector<ExprPtr> values = match_arguments(*procedure, execute);
  SelectPtr select = std::move(procedure->body);
  const auto replace = [&](ExprPtr& node) {
    node->literal.is_foreign = true;
    if (node->kind != ExprKind::variable) return;
    const std::size_t index = parameter_index(*procedure, node->name, execute.position);
    node = clone(*values[index]);
  };
  for_each_expression(*select, [&](ExprPtr& expr) { for_each_node(expr, replace); });
  return select;
}

}  // namespace tela::tsql
