import { registerLayout } from './registry'
import TMessage from './TMessage.vue'
import TOpenDialog from './TOpenDialog.vue'

registerLayout('TMessage', TMessage)
registerLayout('TOpenDialog', TOpenDialog)
