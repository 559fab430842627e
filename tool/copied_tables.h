#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "store/connection.h"
#include "store/words.h"
#include "tool/progress.h"

namespace rule_store {

/// A table as it goes from store to store. The columns that name a row come first.
struct copied_table {
  std::string_view name;
  std::size_t keys;  ///< how many columns name a row
  std::string_view select;
  ADODB::words insert;
};

// Fields have no number: lists show them in the order in which they were put in, which is the one
// that a select without an order gives.
inline constexpr std::array copied_tables{
    copied_table{"field", 1, "select field_id,field_name,attr from field",
                 "insert into field(field_id,field_name,attr) "
                 "values('<field_id>','<field_name>','<attr>')"},
    copied_table{"seqno", 0, "select replace,replace_m,replace_cond from seqno",
                 "insert into seqno(replace,replace_m,replace_cond) "
                 "values(<replace>,<replace_m>,<replace_cond>)"},
    copied_table{"replace", 1,
                 "select replace_no,p_replace_no,kind,title,comment,replace_m_no from replace "
                 "order by replace_no",
                 "insert into replace(replace_no,p_replace_no,kind,title,comment,replace_m_no) "
                 "values(<no>,<folder>,'<kind>','<title>','<comment>',<top rule>)"},
    copied_table{"replace_m", 2,
                 "select replace_no,replace_m_no,p_replace_m_no,use_type,field_id,"
                 "replace_cond_type,replace_cond_no,replace_title,replace_type,r_field_id,r_text,"
                 "r_text_filename,r_image_filename,r_mmedia_filename from replace_m "
                 "order by replace_no,replace_m_no",
                 "insert into replace_m(replace_no,replace_m_no,p_replace_m_no,use_type,field_id,"
                 "replace_cond_type,replace_cond_no,replace_title,replace_type,r_field_id,r_text,"
                 "r_text_filename,r_image_filename,r_mmedia_filename) "
                 "values(<definition>,<no>,<parent>,'<use type>','<field>','<condition type>',"
                 "<condition>,'<title>','<type>','<field value>','<text>','<text file>',"
                 "'<image file>','<multimedia file>')"},
    copied_table{"replace_cond", 3,
                 "select replace_no,replace_cond_no,sno,use_type,s_val,s_method,d_f_val,d_f_method,"
                 "d_t_val,d_t_method,n_f_val,n_f_method,n_t_val,n_t_method,b_val from replace_cond "
                 "order by replace_no,replace_cond_no,sno",
                 "insert into replace_cond(replace_no,replace_cond_no,sno,use_type,s_val,s_method,"
                 "d_f_val,d_f_method,d_t_val,d_t_method,n_f_val,n_f_method,n_t_val,n_t_method,"
                 "b_val) values(<definition>,<condition>,<line>,'<use type>','<text>',<method>,"
                 "'<date from>',<method>,'<date to>',<method>,<number from>,<method>,<number to>,"
                 "<method>,<answer>)"}};

/// The names of the table's columns, in the order of its select and of its insert's places.
[[nodiscard]] std::vector<std::string_view> column_names(const copied_table& table);

struct copied_rows {
  const copied_table& table;
  ADODB::Recordset rows;
};

/// The rows of each of these tables, in their order.
using table_rows = std::vector<copied_rows>;
[[nodiscard]] table_rows read_rows(ADODB::Connection& connection, const progress& tell);

/// The same of the store that a connection string names, at one moment; writes nothing in it.
[[nodiscard]] table_rows read_rows(const std::string& connect_string, const progress& tell);

}  // namespace rule_store
