#include "values/value_statements.h"

#include <array>

namespace ta_vorlumine {
namespace {

using statements = std::array<ADODB::words, value_kinds>;

constexpr statements updates = {
    "update replace_m set replace_title='<title>',replace_type='S',r_text='<value>',"
    "r_field_id=' ',r_text_filename=' ',r_image_filename=' ',r_mmedia_filename=' ' "
    "where replace_m_no=<basNodeKey> and replace_no=<f_replace_no>",

    "update replace_m set replace_title='<title>',replace_type='T',r_text_filename='<value>',"
    "r_field_id=' ',r_text=' ',r_image_filename=' ',r_mmedia_filename=' ' "
    "where replace_m_no=<basNodeKey> and replace_no=<f_replace_no>",

    "update replace_m set replace_title='<title>',replace_type='I',r_image_filename='<value>',"
    "r_field_id=' ',r_text_filename=' ',r_text=' ',r_mmedia_filename=' ' "
    "where replace_m_no=<basNodeKey> and replace_no=<f_replace_no>",

    "update replace_m set replace_title='<title>',replace_type='M',r_mmedia_filename='<value>',"
    "r_field_id=' ',r_text_filename=' ',r_image_filename=' ' ,r_text=' '"
    "where replace_m_no=<basNodeKey> and replace_no=<f_replace_no>",

    "update replace_m set replace_title='<title>',replace_type='F',r_field_id='<value>',"
    "r_text_filename=' ',r_image_filename=' ',r_mmedia_filename=' ' "
    "where replace_m_no=<basNodeKey> and replace_no=<f_replace_no>"};

constexpr statements inserts = {
    "insert into replace_m(replace_m_no,p_replace_m_no,use_type,replace_title,replace_type,"
    "r_text,replace_no) "
    "values(<new_no>,<basNodeKey>,'R','<title>','S','<value>',<f_replace_no>)",

    "insert into replace_m(replace_m_no,p_replace_m_no,use_type,replace_title,replace_type,"
    "r_text_filename,replace_no) "
    "values(<new_no>,<basNodeKey>,'R','<title>','T','<value>',<f_replace_no>)",

    "insert into replace_m(replace_m_no,p_replace_m_no,use_type,replace_title,replace_type,"
    "r_image_filename,replace_no) "
    "values(<new_no>,<basNodeKey>,'R','<title>','I','<value>',<f_replace_no>)",

    "insert into replace_m(replace_m_no,p_replace_m_no,use_type,replace_title,replace_type,"
    "r_mmedia_filename,replace_no) "
    "values(<new_no>,<basNodeKey>,'R','<title>','M','<value>',<f_replace_no>)",

    "insert into replace_m(replace_m_no,p_replace_m_no,use_type,replace_title,replace_type,"
    "r_field_id,replace_no) "
    "values(<new_no>,<basNodeKey>,'R','<title>','F','<value>',<f_replace_no>)"};

}  // namespace

ADODB::statement update_statement(const value_entry& value, const std::string& key,
                                  std::int16_t replace_no) {
  return ADODB::sql(updates.at(value.kind), {value.title, value.content, key, replace_no});
}

ADODB::statement insert_statement(const value_entry& value, std::int16_t new_no,
                                  const std::string& parent, std::int16_t replace_no) {
  return ADODB::sql(inserts.at(value.kind),
                    {new_no, parent, value.title, value.content, replace_no});
}

}  // namespace ta_vorlumine
