// SPDX-License-Identifier: MIT
//     number   = [sign] mantissa [exponent]
//     mantissa = integer ["." [digits]]  |  "." digits
//     exponent = marker [sign] integer
//     integer  = short digits [groups]  |  long digits
//
// One token is read ahead where the grammar can go on, and none where it cannot. The token read last is where the
// caller is told that the literal ends, and what the lexer did for it stays done.
#include "literal.h"

namespace reference {
namespace {

bool are_digits(Token token) { return token == Token::kShortDigits || token == Token::kLongDigits; }

// `token` is the first one, and afterwards the one behind the mantissa.
bool parse_mantissa(Literal& literal, Token& token) {
    const bool has_integer = are_digits(token);
    if (has_integer) {
        const bool may_have_groups = token == Token::kShortDigits;
        token = next_token(literal);
        if (may_have_groups && token == Token::kGroups) token = next_token(literal);
    }
    if (token != Token::kPoint) return has_integer;
    token = next_token(literal);
    if (!are_digits(token)) return has_integer;
    token = next_token(literal);
    return true;
}

bool parse_exponent(Literal& literal) {
    Token token = next_token(literal);
    if (token == Token::kSign) token = next_token(literal);
    if (token == Token::kShortDigits) next_token(literal);  // groups, or whatever ends the literal
    return are_digits(token);
}

}  // namespace

bool parse(Literal& literal) {
    Token token = next_token(literal);
    if (token == Token::kSign) token = next_token(literal);
    if (!parse_mantissa(literal, token)) return false;
    return token != Token::kMarker || parse_exponent(literal);
}

}  // namespace reference
