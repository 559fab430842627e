#include "rules/failure_words.h"

#include <algorithm>
#include <string_view>

#include "store/error.h"

namespace ta_vorlumine {
namespace {

std::string sentence_for(ADODB::failure_kind kind) {
  using enum ADODB::failure_kind;
  switch (kind) {
    case refused_by_key:
      return "同じ番号または名前のデータがすでにあるため、保存できませんでした。"
             "もう一度実行してください。";
    case refused_by_check:
      return "データベースに保存できない値が含まれています。入力した内容を確認してください。";
    case busy:
      return "他のプログラムがデータベースを使用しています。"
             "しばらく待ってから、もう一度実行してください。";
    case stale:
      return "他のプログラムがデータを変更しました。もう一度実行してください。";
    case lost_connection:
      return "データベースに接続できません。接続を確認してから、もう一度実行してください。";
    case read_only:
      return "データベースに書き込むことができません。書き込みの権限を確認してください。";
    case full:
      return "ディスクの空き容量が足りません。空きを作ってから、もう一度実行してください。";
    case other:
      break;
  }
  return "データベースでエラーが発生しました。";
}

// The texts that this program has for its users are Japanese, those for programmers plain ASCII.
bool is_for_users(std::string_view text) {
  return std::ranges::any_of(text,
                             [](char byte) { return static_cast<unsigned char>(byte) > 127; });
}

}  // namespace

std::string words_for(const std::exception& failure) {
  std::string text = failure.what();
  const auto* const refused = dynamic_cast<const ADODB::Error*>(&failure);
  if (!refused && is_for_users(text)) return text;
  return (refused ? sentence_for(refused->kind()) : "予期しないエラーが発生しました。") + "\n\n" +
         text;
}

}  // namespace ta_vorlumine
