import ActionRenderer from './ActionRenderer.vue'
import CheckRenderer from './CheckRenderer.vue'
import ComboRenderer from './ComboRenderer.vue'
import EditRenderer from './EditRenderer.vue'
import GridRenderer from './GridRenderer.vue'
import GroupRenderer from './GroupRenderer.vue'
import LabelRenderer from './LabelRenderer.vue'
import ListRenderer from './ListRenderer.vue'
import MemoRenderer from './MemoRenderer.vue'
import PictureRenderer from './PictureRenderer.vue'
import ProgressRenderer from './ProgressRenderer.vue'
import RadioRenderer from './RadioRenderer.vue'
import SpinRenderer from './SpinRenderer.vue'
import TabRenderer from './TabRenderer.vue'
import TabsRenderer from './TabsRenderer.vue'
import TreeRenderer from './TreeRenderer.vue'
import { registerRenderer } from './registry'

registerRenderer('action', ActionRenderer)
registerRenderer('check', CheckRenderer)
registerRenderer('combo', ComboRenderer)
registerRenderer('edit', EditRenderer)
registerRenderer('grid', GridRenderer)
registerRenderer('group', GroupRenderer)
registerRenderer('label', LabelRenderer)
registerRenderer('list', ListRenderer)
registerRenderer('memo', MemoRenderer)
registerRenderer('picture', PictureRenderer)
registerRenderer('progress', ProgressRenderer)
registerRenderer('radio', RadioRenderer)
registerRenderer('spin', SpinRenderer)
registerRenderer('tab', TabRenderer)
registerRenderer('tabs', TabsRenderer)
registerRenderer('tree', TreeRenderer)
