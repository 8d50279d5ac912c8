// The marks of heredocs, and the lines that end them.
#pragma once

#include "languages/grammars/Perl/Scan.h"

static const uint32_t hashSeed = 0x811c9dc5, hashFactor = 0x01000193;

static void extend(Tag* tag, int32_t c) {
    tag->hash = (tag->hash ^ (uint32_t)c) * hashFactor;
    ++tag->length;
}

static bool isTagPart(const Scan* scan, const Quote* quote) {
    if (atEnd(scan) || isOneOf(next(scan), "\r\n")) return false;
    return !(quote->flags & Interpolates) || !isOneOf(next(scan), "$@\\");
}

// Whether the line is the one that ends the heredoc. Takes of another line what is text in any case.
static bool takeTag(Scan* scan, const Quote* quote, bool* any) {
    Tag tag = {0, hashSeed};
    for (; (quote->flags & Indented) && isOneOf(next(scan), " \t"); *any = true)
        take(scan);
    for (; isTagPart(scan, quote) && tag.length <= quote->tag.length; *any = true) {
        extend(&tag, next(scan));
        take(scan);
    }
    return tag.length == quote->tag.length && tag.hash == quote->tag.hash &&
           (atEnd(scan) || isOneOf(next(scan), "\r\n"));
}

static void takeBareTag(Scan* scan, Tag* tag) {
    for (; isWordPart(next(scan)); take(scan))
        extend(tag, next(scan));
}

static bool takeQuotedTag(Scan* scan, Tag* tag) {
    const int32_t quote = next(scan);
    for (take(scan); next(scan) != quote; take(scan)) {
        if (atEnd(scan) || next(scan) == '\n') return false;
        extend(tag, next(scan));
    }
    take(scan);
    return true;
}

static void addPending(State* state, PendingHeredoc heredoc) {
    if (state->pendingCount < pendingLimit) state->pending[state->pendingCount++] = heredoc;
}

// The mark behind `<<`, if it is one.
static bool takeHeredocMark(Scan* scan, PendingHeredoc* heredoc) {
    heredoc->tag.hash = hashSeed;
    if (takeIf(scan, '~')) heredoc->flags |= Indented;
    const bool isRaw = takeIf(scan, '\\');
    bool spaced = false;
    for (; isOneOf(next(scan), " \t"); spaced = true)
        take(scan);
    if (!isRaw && next(scan) != '\'') heredoc->flags |= Interpolates;
    if (isOneOf(next(scan), "\"'`")) return takeQuotedTag(scan, &heredoc->tag);
    if (spaced || !isWordStart(next(scan))) return false;
    takeBareTag(scan, &heredoc->tag);
    return true;
}

static bool foundHeredocMarker(Scan* scan) {
    PendingHeredoc heredoc = {0};
    if (!takeHeredocMark(scan, &heredoc)) return false;
    addPending(scan->state, heredoc);
    return foundHere(scan, HeredocMarker);
}

// At the end of the line with the mark.
static bool foundHeredoc(Scan* scan) {
    const PendingHeredoc heredoc = takePending(scan->state);
    take(scan);
    const Quote quote = {
        .kind = HeredocBody, .tag = heredoc.tag, .flags = (uint16_t)(heredoc.flags | AtLineStart)};
    pushQuote(scan->state, quote);
    return foundHere(scan, HeredocOpen);
}
