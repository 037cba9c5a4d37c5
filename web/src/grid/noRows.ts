import { RowStore } from '../core/rows'

/** Stands in for the rows of a component that has none. */
export const noRows = new RowStore()
