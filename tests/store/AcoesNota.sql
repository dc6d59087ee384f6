-- post
;
select count(*) from compra_item_tmp where empr_cod=1 and compra_cod=1 and estacao_cod=10
;
select *
from compra_item_tmp where empr_cod=1 and compra_cod=1 and estacao_cod=10
;
select tot_prods as custo_tot, 
ipi, outras, icms, desconto, tot
from compra where empr_cod=1 and compra_cod=1 and estacao_cod=10
;
select qtd_embs, emb_qtd from compra_item_tmp where empr_cod=1 and compra_cod=1 and estacao_cod=10 order by compra_item_tmp_cod
;
select count(*) from sinc_trava where nome='Retag Compra Baixa 1-10-1'
;
execute block as begin
  insert into sinc_trava (nome) values ('Retag Compra Baixa 1-10-1');
  when gdscode unique_key_violation do begin end
end
;
select baixado from compra where empr_cod=1 and estacao_cod=10 and compra_cod=1
;
select count(*) from compra_est_mov where empr_cod=1 and estacao_cod=10 and compra_cod=1
;
select count(*) from COMPRA_ITEM_TMP where empr_cod=1 and compra_cod=1 and compra_item_tmp.estacao_cod=10

;
select valor from config where chave='REP_PRODUC_CUSTO_CRIA'
;
select * from COMPRA_ITEM_TMP where empr_cod=1 and compra_cod=1 and compra_item_tmp.estacao_cod=10
 order by compra_item_tmp_cod
;
select prod.prod_cod, prod.descr, prod_compo.qtd, unid.sigla from prod join prod_compo on prod.prod_cod=prod_compo.prod_cod_filho join unid on prod.unid_cod=unid.unid_cod where prod_compo.prod_cod_pai=1 order by prod.descr
;
;
select prod.prod_cod, prod.descr, prod_compo.qtd, unid.sigla from prod join prod_compo on prod.prod_cod=prod_compo.prod_cod_filho join unid on prod.unid_cod=unid.unid_cod where prod_compo.prod_cod_pai=3 order by prod.descr
;
;
select tab_preco_cod, preco from COMPRA_ITEM_TMP_precos where empr_cod=1 and estacao_cod=10 and compra_item_tmp_cod=1 order by tab_preco_cod
;
select GEN_ID(est_mov_g, 1) from RDB$DATABASE
;
execute block as
begin
  insert into est_mov (empr_cod, estacao_cod, est_mov_cod, tipo, prod_cod, prod_tipo_cod, nitem, qtd, custo, custo_tot, preco_unit, preco_atual, desconto, cancelado, dth_cri, cfop, trib_icms_cst, trib_orig, trib_icms_modbc, trib_icms_modbcst, cst_pis, cst_cofins, trib_icms_picms, trib_icms_vicms, trib_icms_vbc, trib_icms_pmvast, trib_icms_predbcst, trib_icms_predbc, trib_icms_picmsst, trib_icms_vbcst, trib_icms_vicmsst, pipi, vipi, outras, frete, seguro, trib_icms_vbcfcp, trib_icms_pfcp, trib_icms_vfcp, trib_icms_vbcfcpst, trib_icms_pfcpst, trib_icms_vfcpst, trib_icms_vbcstret, trib_icms_pst, trib_icms_vicmssubstituto, trib_icms_vicmsstret, ppis, vpis, pcofins, vcofins, trat_icms, origem_merc, icms_bc_mod, icms_st_bc_mod, trib_perc, icms_bc_perc_red, icms_bc_val, icms_st_perc_ad, icms_st_perc_red, trib_st_perc, icms_st_bc_val, icms_st_val, icms_st_val_ret, icms_val, trib_cod) values (1, 10, 1, 'E', 1, (select prod_tipo_cod from prod where prod_cod=1), (select count(*) + 1 from compra_est_mov where empr_cod=1 and estacao_cod=10 and compra_cod=1), 2, 10, 20, 10, 15, 0, 'N', '2026-11-20 10:30:00', '1102', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, (select trib_cod from prod where prod.prod_cod=1));
  insert into compra_est_mov (empr_cod, estacao_cod, compra_cod, est_mov_empr_cod, est_mov_estacao_cod, est_mov_cod) values (1, 10, 1, 1, 10, 1);
end
;
update est_mov set info_adic='lote d''água' where empr_cod=1 and estacao_cod=10 and est_mov_cod=1
;
update est_mov set icms_val=0, trib_cod=(select trib_cod from prod where prod.prod_cod=est_mov.prod_cod), trat_icms=trib_icms_cst, origem_merc=trib_orig, icms_bc_mod=trib_icms_modbc, icms_st_bc_mod=trib_icms_modbcst, trib_perc=trib_icms_picms, icms_bc_perc_red=trib_icms_predbc, icms_bc_val=trib_icms_vbc, icms_st_perc_ad=trib_icms_pmvast, icms_st_perc_red=trib_icms_predbcst, trib_st_perc=trib_icms_picmsst, icms_st_bc_val=trib_icms_vbcst, icms_st_val=trib_icms_vicmsst, icms_st_val_ret=trib_icms_vicmsstret where empr_cod=1 and estacao_cod=10 and est_mov_cod=1 and (icms_val is distinct from 0 or trib_cod is distinct from (select trib_cod from prod where prod.prod_cod=est_mov.prod_cod) or trat_icms is distinct from trib_icms_cst or origem_merc is distinct from trib_orig or icms_bc_mod is distinct from trib_icms_modbc or icms_st_bc_mod is distinct from trib_icms_modbcst or trib_perc is distinct from trib_icms_picms or icms_bc_perc_red is distinct from trib_icms_predbc or icms_bc_val is distinct from trib_icms_vbc or icms_st_perc_ad is distinct from trib_icms_pmvast or icms_st_perc_red is distinct from trib_icms_predbcst or trib_st_perc is distinct from trib_icms_picmsst or icms_st_bc_val is distinct from trib_icms_vbcst or icms_st_val is distinct from trib_icms_vicmsst or icms_st_val_ret is distinct from trib_icms_vicmsstret)
;
execute block as
begin
  insert into prod_custo (prod_custo_cod, empr_cod, prod_cod, fornec_cod, custo, dt, compra_cod, est_mov_cod, dth_cri) values (gen_id(prod_custo_g, 1), 1, 1, 1, 10, '2026-11-20', 1, 1, '2026-11-20 10:30:00');
  merge into prod_custo_atual a using (select 0 as fornec_cod from rdb$database union all select 1 from rdb$database) f on a.empr_cod=1 and a.prod_cod=1 and coalesce(a.fornec_cod, 0)=f.fornec_cod when matched then update set custo=10, dt='2026-11-20', dth_atu='2026-11-20 10:30:00' when not matched then insert (empr_cod, prod_cod, fornec_cod, custo, dt, dth_atu) values (1, 1, f.fornec_cod, 10, '2026-11-20', '2026-11-20 10:30:00');
end
;
execute block as
begin
  insert into prod_preco (prod_preco_cod, empr_cod, tab_preco_cod, prod_cod, preco, preco_promo, dt, enviado, dth_cri) values (gen_id(prod_preco_g, 1), 1, 1, 1, 15, 0, '2026-11-20', 'N', '2026-11-20 10:30:00');
  update or insert into prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt, dth_atu) values (1, 1, 1, 15, '2026-11-20', '2026-11-20 10:30:00') matching (empr_cod, tab_preco_cod, prod_cod);
end
;
execute block as
begin
  insert into prod_preco (prod_preco_cod, empr_cod, tab_preco_cod, prod_cod, preco, preco_promo, dt, enviado, dth_cri) values (gen_id(prod_preco_g, 1), 1, 2, 1, 14, 0, '2026-11-20', 'N', '2026-11-20 10:30:00');
  update or insert into prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt, dth_atu) values (1, 2, 1, 14, '2026-11-20', '2026-11-20 10:30:00') matching (empr_cod, tab_preco_cod, prod_cod);
end
;
select tab_preco_cod, preco from COMPRA_ITEM_TMP_precos where empr_cod=1 and estacao_cod=10 and compra_item_tmp_cod=2 order by tab_preco_cod
;
select GEN_ID(est_mov_g, 1) from RDB$DATABASE
;
execute block as
begin
  insert into est_mov (empr_cod, estacao_cod, est_mov_cod, tipo, prod_cod, prod_tipo_cod, nitem, qtd, custo, custo_tot, preco_unit, preco_atual, desconto, cancelado, dth_cri, cfop, trib_icms_cst, trib_orig, trib_icms_modbc, trib_icms_modbcst, cst_pis, cst_cofins, trib_icms_picms, trib_icms_vicms, trib_icms_vbc, trib_icms_pmvast, trib_icms_predbcst, trib_icms_predbc, trib_icms_picmsst, trib_icms_vbcst, trib_icms_vicmsst, pipi, vipi, outras, frete, seguro, trib_icms_vbcfcp, trib_icms_pfcp, trib_icms_vfcp, trib_icms_vbcfcpst, trib_icms_pfcpst, trib_icms_vfcpst, trib_icms_vbcstret, trib_icms_pst, trib_icms_vicmssubstituto, trib_icms_vicmsstret, ppis, vpis, pcofins, vcofins, trat_icms, origem_merc, icms_bc_mod, icms_st_bc_mod, trib_perc, icms_bc_perc_red, icms_bc_val, icms_st_perc_ad, icms_st_perc_red, trib_st_perc, icms_st_bc_val, icms_st_val, icms_st_val_ret, icms_val, trib_cod) values (1, 10, 2, 'E', 3, (select prod_tipo_cod from prod where prod_cod=3), (select count(*) + 1 from compra_est_mov where empr_cod=1 and estacao_cod=10 and compra_cod=1), 1, 31.7, 30.5, 30.5, 0, 0, 'N', '2026-11-20 10:30:00', '1102', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1.2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, (select trib_cod from prod where prod.prod_cod=3));
  insert into compra_est_mov (empr_cod, estacao_cod, compra_cod, est_mov_empr_cod, est_mov_estacao_cod, est_mov_cod) values (1, 10, 1, 1, 10, 2);
end
;
select GEN_ID(est_mov_compo_g, 1) from RDB$DATABASE
;
insert into EST_MOV_COMPO( EMPR_COD, EST_MOV_COD, EST_MOV_COMPO_COD, PROD_COD_FILHO, QTD) values (1, 2, 1, 1, 2);
;
update est_mov set info_adic='' where empr_cod=1 and estacao_cod=10 and est_mov_cod=2
;
update est_mov set icms_val=0, trib_cod=(select trib_cod from prod where prod.prod_cod=est_mov.prod_cod), trat_icms=trib_icms_cst, origem_merc=trib_orig, icms_bc_mod=trib_icms_modbc, icms_st_bc_mod=trib_icms_modbcst, trib_perc=trib_icms_picms, icms_bc_perc_red=trib_icms_predbc, icms_bc_val=trib_icms_vbc, icms_st_perc_ad=trib_icms_pmvast, icms_st_perc_red=trib_icms_predbcst, trib_st_perc=trib_icms_picmsst, icms_st_bc_val=trib_icms_vbcst, icms_st_val=trib_icms_vicmsst, icms_st_val_ret=trib_icms_vicmsstret where empr_cod=1 and estacao_cod=10 and est_mov_cod=2 and (icms_val is distinct from 0 or trib_cod is distinct from (select trib_cod from prod where prod.prod_cod=est_mov.prod_cod) or trat_icms is distinct from trib_icms_cst or origem_merc is distinct from trib_orig or icms_bc_mod is distinct from trib_icms_modbc or icms_st_bc_mod is distinct from trib_icms_modbcst or trib_perc is distinct from trib_icms_picms or icms_bc_perc_red is distinct from trib_icms_predbc or icms_bc_val is distinct from trib_icms_vbc or icms_st_perc_ad is distinct from trib_icms_pmvast or icms_st_perc_red is distinct from trib_icms_predbcst or trib_st_perc is distinct from trib_icms_picmsst or icms_st_bc_val is distinct from trib_icms_vbcst or icms_st_val is distinct from trib_icms_vicmsst or icms_st_val_ret is distinct from trib_icms_vicmsstret)
;
execute block as
begin
  insert into prod_custo (prod_custo_cod, empr_cod, prod_cod, fornec_cod, custo, dt, compra_cod, est_mov_cod, dth_cri) values (gen_id(prod_custo_g, 1), 1, 3, 1, 31.7, '2026-11-20', 1, 2, '2026-11-20 10:30:00');
  merge into prod_custo_atual a using (select 0 as fornec_cod from rdb$database union all select 1 from rdb$database) f on a.empr_cod=1 and a.prod_cod=3 and coalesce(a.fornec_cod, 0)=f.fornec_cod when matched then update set custo=31.7, dt='2026-11-20', dth_atu='2026-11-20 10:30:00' when not matched then insert (empr_cod, prod_cod, fornec_cod, custo, dt, dth_atu) values (1, 3, f.fornec_cod, 31.7, '2026-11-20', '2026-11-20 10:30:00');
end
;
insert into prod_custo_env (prod_custo_env_cod, empr_cod, prod_cod, custo, sessao, dth_cri) select gen_id(prod_custo_env_g, 1), empr_cod, prod_cod, custo, 'PAVREL estação 1', '2026-11-20 10:30:00' from prod_custo_atual where coalesce(fornec_cod, 0)=0 and prod_cod in (1, 3)
;
update compra set baixado='S' where empr_cod=1 and compra_cod=1 and estacao_cod=10
;
-- post
;
select count(*) from compra_item_tmp where empr_cod=1 and compra_cod=2 and estacao_cod=10
;
select *
from compra_item_tmp where empr_cod=1 and compra_cod=2 and estacao_cod=10
;
update compra set tot_prods=9, tot=9 where empr_cod=1 and estacao_cod=1 and compra_cod=2
;
select tot_prods as custo_tot, 
ipi, outras, icms, desconto, tot
from compra where empr_cod=1 and compra_cod=2 and estacao_cod=1
;
select qtd_embs, emb_qtd from compra_item_tmp where empr_cod=1 and compra_cod=2 and estacao_cod=10 order by compra_item_tmp_cod
;
select count(*) from sinc_trava where nome='Retag Compra Baixa 1-1-2'
;
execute block as begin
  insert into sinc_trava (nome) values ('Retag Compra Baixa 1-1-2');
  when gdscode unique_key_violation do begin end
end
;
select baixado from compra where empr_cod=1 and estacao_cod=1 and compra_cod=2
;
select count(*) from compra_est_mov where empr_cod=1 and estacao_cod=1 and compra_cod=2
;
select count(*) from COMPRA_ITEM_TMP where empr_cod=1 and compra_cod=2 and compra_item_tmp.estacao_cod=1

;
select valor from config where chave='REP_PRODUC_CUSTO_CRIA'
;
select * from COMPRA_ITEM_TMP where empr_cod=1 and compra_cod=2 and compra_item_tmp.estacao_cod=10
 order by compra_item_tmp_cod
;
select prod.prod_cod, prod.descr, prod_compo.qtd, unid.sigla from prod join prod_compo on prod.prod_cod=prod_compo.prod_cod_filho join unid on prod.unid_cod=unid.unid_cod where prod_compo.prod_cod_pai=2 order by prod.descr
;
;
select tab_preco_cod, preco from COMPRA_ITEM_TMP_precos where empr_cod=1 and estacao_cod=1 and compra_item_tmp_cod=3 order by tab_preco_cod
;
select GEN_ID(est_mov_g, 1) from RDB$DATABASE
;
execute block as
begin
  insert into est_mov (empr_cod, estacao_cod, est_mov_cod, tipo, prod_cod, prod_tipo_cod, nitem, qtd, custo, custo_tot, preco_unit, preco_atual, desconto, cancelado, dth_cri, cfop, trib_icms_cst, trib_orig, trib_icms_modbc, trib_icms_modbcst, cst_pis, cst_cofins, trib_icms_picms, trib_icms_vicms, trib_icms_vbc, trib_icms_pmvast, trib_icms_predbcst, trib_icms_predbc, trib_icms_picmsst, trib_icms_vbcst, trib_icms_vicmsst, pipi, vipi, outras, frete, seguro, trib_icms_vbcfcp, trib_icms_pfcp, trib_icms_vfcp, trib_icms_vbcfcpst, trib_icms_pfcpst, trib_icms_vfcpst, trib_icms_vbcstret, trib_icms_pst, trib_icms_vicmssubstituto, trib_icms_vicmsstret, ppis, vpis, pcofins, vcofins, trat_icms, origem_merc, icms_bc_mod, icms_st_bc_mod, trib_perc, icms_bc_perc_red, icms_bc_val, icms_st_perc_ad, icms_st_perc_red, trib_st_perc, icms_st_bc_val, icms_st_val, icms_st_val_ret, icms_val, trib_cod) values (1, 10, 3, 'E', 2, (select prod_tipo_cod from prod where prod_cod=2), (select count(*) + 1 from compra_est_mov where empr_cod=1 and estacao_cod=1 and compra_cod=2), 3, 3, 9, 3, 0, 0, 'N', '2026-11-20 10:30:00', '1102', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, (select trib_cod from prod where prod.prod_cod=2));
  insert into compra_est_mov (empr_cod, estacao_cod, compra_cod, est_mov_empr_cod, est_mov_estacao_cod, est_mov_cod) values (1, 1, 2, 1, 10, 3);
end
;
update est_mov set info_adic='' where empr_cod=1 and estacao_cod=10 and est_mov_cod=3
;
update est_mov set icms_val=0, trib_cod=(select trib_cod from prod where prod.prod_cod=est_mov.prod_cod), trat_icms=trib_icms_cst, origem_merc=trib_orig, icms_bc_mod=trib_icms_modbc, icms_st_bc_mod=trib_icms_modbcst, trib_perc=trib_icms_picms, icms_bc_perc_red=trib_icms_predbc, icms_bc_val=trib_icms_vbc, icms_st_perc_ad=trib_icms_pmvast, icms_st_perc_red=trib_icms_predbcst, trib_st_perc=trib_icms_picmsst, icms_st_bc_val=trib_icms_vbcst, icms_st_val=trib_icms_vicmsst, icms_st_val_ret=trib_icms_vicmsstret where empr_cod=1 and estacao_cod=10 and est_mov_cod=3 and (icms_val is distinct from 0 or trib_cod is distinct from (select trib_cod from prod where prod.prod_cod=est_mov.prod_cod) or trat_icms is distinct from trib_icms_cst or origem_merc is distinct from trib_orig or icms_bc_mod is distinct from trib_icms_modbc or icms_st_bc_mod is distinct from trib_icms_modbcst or trib_perc is distinct from trib_icms_picms or icms_bc_perc_red is distinct from trib_icms_predbc or icms_bc_val is distinct from trib_icms_vbc or icms_st_perc_ad is distinct from trib_icms_pmvast or icms_st_perc_red is distinct from trib_icms_predbcst or trib_st_perc is distinct from trib_icms_picmsst or icms_st_bc_val is distinct from trib_icms_vbcst or icms_st_val is distinct from trib_icms_vicmsst or icms_st_val_ret is distinct from trib_icms_vicmsstret)
;
update compra set baixado='S' where empr_cod=1 and compra_cod=2 and estacao_cod=1
;
-- unpost
;
select count(*) from sinc_trava where nome='Retag Compra Baixa 1-10-1'
;
select baixado from compra where empr_cod=1 and estacao_cod=10 and compra_cod=1
;
select est_mov_empr_cod, est_mov_estacao_cod, est_mov_cod from compra_est_mov where empr_cod=1 and compra_cod=1
;
delete from est_mov_compo where est_mov_cod=1
;
delete from est_mov where empr_cod=1 and estacao_cod=10 and est_mov_cod=1
;
delete from est_mov_compo where est_mov_cod=2
;
delete from est_mov where empr_cod=1 and estacao_cod=10 and est_mov_cod=2
;
delete from compra_est_mov where empr_cod=1 and compra_cod=1
;
select est_mov_empr_cod, est_mov_estacao_cod, est_mov_cod from compra_est_mov_env where empr_cod=1 and compra_cod=1
;
update compra set baixado='N' where empr_cod=1 and compra_cod=1
;
-- send
;
select m.empr_cod, m.estacao_cod, m.est_mov_cod, l.estacao_cod from compra_est_mov l join est_mov m on m.empr_cod=l.est_mov_empr_cod and m.estacao_cod=l.est_mov_estacao_cod and m.est_mov_cod=l.est_mov_cod where l.empr_cod=1 and l.compra_cod=3 and m.tipo<>'C' and coalesce(m.cancelado, 'N')<>'S' order by m.est_mov_cod
;
select est_mov_empr_cod, est_mov_estacao_cod, est_mov_cod from compra_est_mov_env where empr_cod=1 and compra_cod=3
;
-- cancel
;
update COMPRA set cancelado='S' where empr_cod=1 and COMPRA_cod=1 and estacao_cod=10
